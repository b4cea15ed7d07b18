// Lazy per-family code-path dispatch.
//
// Every processor-specific kernel is reached through a slot: a function
// pointer that is empty until the first call, which chooses the build for
// this process and installs it with one pointer store. Later calls cost a
// load, a test and an indirect call.
//
// Each engine layer declares its families as one record of function pointers
// (the list of slots) and one table of that record per build, with designated
// members; `Family<Record>` names the process-wide slots and, per build, the
// table to install from. A reduced dispatcher is a build whose table points
// at another build's member.
#pragma once

#include "service/cpu_detect.h"

namespace orv {

// The builds of a family, in the order a full dispatcher lists them.
enum class Build : int { avx512, avx512_qix, avx2, avx, mc3, cnr, mc, def };
inline constexpr int kBuildCount = 8;

// The build that code path `code` installs under reproducibility branch
// `branch`: paths 7 to 3 their own; path 2 (0) the mc (def) build with no mode
// (branch 1) and the reproducible build under any mode. False for an unusable
// code (1, or outside 0..7).
bool build_for_code_path(CodePath code, int branch, Build* build);

// The build of this process. An unusable code path prints "CPU %d is not
// supported." with the code and ends the process.
Build dispatch_build();

// Specialised by each layer for its record of slots:
//   static Record slots;                                 (all empty at load)
//   static const Record* const builds[kBuildCount];      (indexed by Build)
template <typename Record>
struct Family;

template <typename T>
struct MemberOf;
template <typename Record, typename Fn>
struct MemberOf<Fn Record::*> {
    using type = Record;
};

// Installs member M of this process's build into its slot and returns it.
// Threads that race here all compute and store the same pointer.
template <auto M>
[[gnu::noinline, gnu::cold]] auto install_slot()
{
    using Record = typename MemberOf<decltype(M)>::type;
    const auto chosen = Family<Record>::builds[static_cast<int>(dispatch_build())]->*M;
    __atomic_store_n(&(Family<Record>::slots.*M), chosen, __ATOMIC_RELAXED);
    return chosen;
}

// Calls member M (for instance &Level1Kernels::ddot) of the build installed
// for this process, passing the arguments through unchanged.
template <auto M, typename... Args>
inline decltype(auto) dispatch(Args... args)
{
    using Record = typename MemberOf<decltype(M)>::type;
    auto fn = __atomic_load_n(&(Family<Record>::slots.*M), __ATOMIC_RELAXED);
    if (__builtin_expect(fn == nullptr, 0)) fn = install_slot<M>();
    return fn(args...);
}

}  // namespace orv
