// Splitting one vector operation over the threads of an OpenMP team.
//
// Every threaded level-1 driver follows the same steps: decide how many
// parts the vector is worth, fork one team, give each thread a contiguous
// run of logical elements, call the kernel on it through its dispatch slot,
// and for a reduction combine the threads' results in thread order on the
// calling thread. A driver only states its split (threshold and grain), how
// a chunk reaches its kernel and how the partial results are combined.
//
// Results of the reductions depend on the team size the runtime grants (and
// so on n, the grain and the thread policy), never on thread timing.
#pragma once

#include <omp.h>

#include <type_traits>

#include "service/memory.h"
#include "service/types.h"

namespace orv::frame {

// When a routine is worth several threads and how finely it may be cut.
struct Split {
    i64 threshold;  // shorter vectors stay on the calling thread
    i64 grain;      // no part is asked for below this many elements
};

// A contiguous run of logical elements of the whole vector of `total`.
struct Chunk {
    i64 start;
    i64 length;
    i64 total;

    // Base address of this chunk in a vector `v` with increment `inc`, such
    // that the kernel's own walk over `length` elements (from the far end
    // for a negative increment) visits exactly this chunk's elements.
    template <typename T>
    T* base(T* v, i64 inc) const
    {
        return v + (inc < 0 ? start + length - total : start) * inc;
    }
};

inline Chunk whole(i64 n) { return {0, n, n}; }

// Thread t's chunk of n elements in a team of `team`: the first n mod team
// threads take one element more. A thread beyond the elements gets an empty
// chunk, whose kernel call returns at once.
inline Chunk chunk_of(i64 n, i64 team, i64 t)
{
    const i64 q = n / team;
    const i64 b = q > 1 ? q : 1;
    const i64 r = n - team * b > 0 ? n - team * b : 0;
    Chunk c{t < r ? t * (b + 1) : t * b + r, t < r ? b + 1 : b, n};
    if (c.start >= n) return {0, 0, n};
    if (c.start + c.length > n) c.length = n - c.start;
    return c;
}

// How many parts to ask for; 1 means one kernel call on the whole vector.
// `splittable` is false when an increment forbids splitting (a zero step
// revisits one element from every chunk). Asks the thread policy only when
// the vector is long enough.
i64 parts_for(const Split& split, i64 n, bool splittable);

// Runs work(t, team) on every thread t of one team asked to be `threads`
// strong, `team` being the size the runtime granted, which may be smaller
// (nested inside an active region, a thread limit); a region the runtime does
// not fork runs serialized on this thread. Returns the team size granted.
template <typename Work>
int run_region(i64 threads, const Work& work)
{
    int granted = 1;
#pragma omp parallel num_threads(static_cast<int>(threads))
    {
        const int team = omp_get_num_threads();
        const int t = omp_get_thread_num();
        if (t == 0) granted = team;
        work(t, team);
    }
    return granted;
}

// Runs work(chunk, t) on every thread t of a team asked to be `parts`
// strong, the chunks cut for the team granted; returns its size.
template <typename Work>
int run_team(i64 n, i64 parts, const Work& work)
{
    return run_region(parts, [&](int t, int team) { work(chunk_of(n, team, t), t); });
}

// An operation without a result: each chunk's kernel call writes only its
// own elements.
template <typename Kernel>
void update(const Split& split, i64 n, bool splittable, const Kernel& kernel)
{
    const i64 parts = parts_for(split, n, splittable);
    if (parts == 1) {
        kernel(whole(n));
        return;
    }
    run_team(n, parts, [&](const Chunk& c, int) { kernel(c); });
}

// One partial result per thread: in this frame for up to kStackEntries
// threads, from the memory manager above.
inline constexpr i64 kStackEntries = 512;

template <typename Entry>
class Partials {
public:
    Partials(i64 parts, const char* caller) : data_(local_)
    {
        if (parts <= kStackEntries) return;
        data_ = static_cast<Entry*>(orv_malloc(static_cast<std::size_t>(parts) * sizeof(Entry), 128));
        heap_ = true;
        if (alloc_failed(data_, caller)) data_ = nullptr;
    }
    ~Partials()
    {
        if (heap_) orv_free(data_);
    }
    Partials(const Partials&) = delete;
    Partials& operator=(const Partials&) = delete;

    Entry* data() { return data_; }  // null when the heap array was refused

private:
    Entry local_[kStackEntries];
    Entry* data_;
    bool heap_ = false;
};

// A chunk's result as its partial entry: a real norm kept in a complex entry
// becomes (norm, 0).
template <typename Entry, typename Value>
Entry as_entry(const Value& v)
{
    if constexpr (std::is_same_v<Entry, dcomplex> && std::is_same_v<Value, double>)
        return {v, 0.0};
    else
        return v;
}

// A reduction: kernel(chunk) gives a chunk's result, stored as an Entry (the
// norm of dznrm2 is kept as the complex value (norm, 0)); combine(entries,
// team) folds the team's entries in thread order. A refused partial array
// costs only the threads: the whole vector goes to one kernel call.
template <typename Entry, typename Kernel, typename Combine>
auto reduce(const char* caller, const Split& split, i64 n, bool splittable, const Kernel& kernel,
            const Combine& combine) -> decltype(kernel(whole(n)))
{
    const i64 parts = parts_for(split, n, splittable);
    if (parts == 1) return kernel(whole(n));
    Partials<Entry> partials(parts, caller);
    Entry* entries = partials.data();
    if (entries == nullptr) return kernel(whole(n));
    const int team = run_team(n, parts, [&](const Chunk& c, int t) { entries[t] = as_entry<Entry>(kernel(c)); });
    return combine(entries, team);
}

}  // namespace orv::frame
