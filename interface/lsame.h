// Option-letter comparison shared by the checkers and the lsame_ export.
#pragma once

namespace orv {

// 1 when the characters at `a` and `b` are equal ignoring the case of ASCII
// letters (and only of letters: '[' and '{' differ), else 0; 0 for a null.
inline int lsame(const char* a, const char* b)
{
    if (a == nullptr || b == nullptr) return 0;
    unsigned char ca = static_cast<unsigned char>(*a);
    unsigned char cb = static_cast<unsigned char>(*b);
    if (ca == cb) return 1;
    if (ca >= 'a' && ca <= 'z') ca = static_cast<unsigned char>(ca - 32);
    if (cb >= 'a' && cb <= 'z') cb = static_cast<unsigned char>(cb - 32);
    return ca == cb ? 1 : 0;
}

}  // namespace orv
