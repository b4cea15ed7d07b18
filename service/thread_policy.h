// How many threads a threaded driver may use.
//
// The answer combines a count set by the program (orv_set_num_threads), the
// environment (ORV_NUM_THREADS, ORV_DOMAIN_NUM_THREADS, ORV_DYNAMIC,
// OMP_NUM_THREADS and the ranks-per-node variables of MPI launchers), the
// OpenMP runtime's maximum and the machine's topology.
//
// The rules are plain functions over a ThreadPolicy record and an injected
// environment reader, so that tests can drive them; the get_* functions at
// the end apply them to the process-wide record, which is filled once from
// the real environment and the real topology on the first query.
#pragma once

#include "service/topology.h"

namespace orv {

// Thread domains. The BLAS drivers always ask for kDomainBlas; domains 3 and
// 4 belong to components outside this library and are only parsed.
enum ThreadDomain : int {
    kDomainNone = 0,
    kDomainBlas = 1,
    kDomainFft = 2,
    kDomainKor = 3,
    kDomainTavelin = 4,
};
inline constexpr int kDomainLast = kDomainTavelin;

// Process-wide policy state; -1 means "not set". Every field is a plain
// 32-bit word written before needs_init is cleared and read without a lock
// afterwards; only num_threads changes later (orv_set_num_threads).
struct ThreadPolicy {
    int num_threads = -1;                           // general count
    int domain_threads[kDomainLast + 1] = {-1, -1, -1, -1, -1};  // index 1..4 used
    int dynamic = -1;                               // 1: may use fewer threads than asked
    int omp_threads_env = -1;                       // positive when OMP_NUM_THREADS is usable
    int ranks_per_node = -1;                        // MPI processes on this node
    int mpi_thread_level = -1;                      // 0..3 when announced
    int logical_cpus = 1;
    int physical_cores = -1;
    int numa_nodes = -1;
    int cores_per_node = -1;
    int hyperthreading = -1;
    int needs_init = 1;
};

// Reads variable `name` into `buf` (`size` bytes, terminated); returns the
// value's length, 0 or less when unset or empty. platform::read_env in the
// library, a table in tests.
using EnvReader = int (*)(const char* name, char* buf, int size);

// ---- Rules -----------------------------------------------------------------

// A count written by a user: any non-digit (or an empty text) means 1, on
// purpose ("4x", "-2" and "auto" all ask for one thread); otherwise the
// decimal value, saturated at the largest int.
int parse_count_text(const char* text);

// The ORV_DYNAMIC word: only "FALSE" and "false" turn dynamic adjustment off.
int parse_dynamic_text(const char* text);

// Applies the key/value list of ORV_DOMAIN_NUM_THREADS to `policy`; the
// first valid assignment of each key wins.
void scan_domain_list(ThreadPolicy& policy, const char* text);

// MPI processes sharing this node from the launchers' variables, -1 when
// none of them announces a positive count.
int read_ranks_per_node(EnvReader read);

// Fills the environment fields of `policy`.
void read_policy_environment(ThreadPolicy& policy, EnvReader read);

// Fills the topology fields of `policy`, with the derived cores_per_node and
// hyperthreading.
void apply_topology(ThreadPolicy& policy, const Topology& topology);

// Stores a positive count as the general thread count; others are ignored.
void store_requested_threads(ThreadPolicy& policy, int n);

// What the caller's situation adds to the policy when a count is asked for.
struct ThreadQuery {
    int thread_override = 0;  // the calling thread's own count, when positive
    int in_parallel = 0;      // nonzero inside an active parallel region
    int omp_max_threads = 1;  // omp_get_max_threads()
};

// The count for a driver of `domain`, from an initialised policy.
int decide_thread_count(const ThreadPolicy& policy, int domain, const ThreadQuery& query);

// ---- This process ------------------------------------------------------------

// The count a driver of `domain` should use; BLAS drivers ask with
// kDomainBlas right before each parallel region.
int get_max_threads_for_domain(int domain);
// The general count (domain 0): orv_get_max_threads and the call trace.
int get_max_threads();
// 1 when the policy may hand out fewer threads than asked, else 0.
int get_dynamic();
// orv_set_num_threads: a positive n becomes the general count.
void set_num_threads(int n);

// Topology and environment facts for the engines' partitioners and the
// trace; each initialises the policy when needed.
int get_physical_cores();
int get_cores_per_node();
int get_hyperthreading();
int get_numa_nodes();
int get_logical_cpus();
int get_ranks_per_node();
// The count given for `domain` (1..4) in ORV_DOMAIN_NUM_THREADS, -1 when none.
int get_domain_num_threads(int domain);

// The calling thread's own count, 0 when none was stored. It overrides the
// policy for that thread; nothing in the library stores one yet, the slot
// exists so that a thread-local setter can be offered.
int thread_count_override();
void set_thread_count_override(int n);

}  // namespace orv
