// The operand records' storage bits, and the observer of the roads.
#include "level3/gemm_records.h"

#include "level3/gemm_observer.h"
#include "service/elements.h"

namespace orv {

GemmObserver gemm_observer = nullptr;

GemmObserver set_gemm_observer(GemmObserver observer)
{
    const GemmObserver previous = gemm_observer;
    gemm_observer = observer;
    return previous;
}

int storage_kind(const char* trans)
{
    switch (option_letter(trans)) {
    case 'N': return kStoredAsIs;
    case 'C': return kStoredConjugated;
    default: return kStoredTransposed;
    }
}

}  // namespace orv
