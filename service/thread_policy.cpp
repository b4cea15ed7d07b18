// The thread-count policy: reading the environment once, and the rule that
// turns the policy, the caller's situation and the topology into a count.

#include "service/thread_policy.h"

#include <omp.h>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "service/platform.h"
#include "service/spinlock.h"
#include "service/thread_slot.h"

namespace orv {
namespace {

constexpr int kEnvBufferSize = 256;

// Keys of ORV_DOMAIN_NUM_THREADS, indexed by domain; "ORV_DOMAIN_ALL" sets
// the general count instead.
constexpr const char* kAllKey = "ORV_DOMAIN_ALL";
constexpr const char* kDomainKeys[kDomainLast + 1] = {
    nullptr, "ORV_DOMAIN_BLAS", "ORV_DOMAIN_FFT", "ORV_DOMAIN_KOR", "ORV_DOMAIN_TAVELIN",
};

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_quote(char c) { return c == '"' || c == '\''; }

bool all_digits(const char* text, int length)
{
    for (int i = 0; i < length; ++i)
        if (!is_digit(text[i])) return false;
    return true;
}

// Decimal value of `length` digits, saturated at INT_MAX.
int decimal_value(const char* digits, int length)
{
    long long value = 0;
    for (int i = 0; i < length; ++i) {
        value = value * 10 + (digits[i] - '0');
        if (value > INT_MAX) return INT_MAX;
    }
    return static_cast<int>(value);
}

int count_of(const char* text, int length)
{
    if (length == 0 || !all_digits(text, length)) return 1;
    return decimal_value(text, length);
}

// The first writer of a cell wins. A compare-exchange, because the general
// count may be set by orv_set_num_threads on another thread while the
// environment is being read.
void store_if_unset(int& cell, int value)
{
    int expected = -1;
    __atomic_compare_exchange_n(&cell, &expected, value, false, __ATOMIC_RELAXED, __ATOMIC_RELAXED);
}

bool key_is(const char* key, int length, const char* name)
{
    return static_cast<int>(std::strlen(name)) == length && std::memcmp(key, name, static_cast<std::size_t>(length)) == 0;
}

void assign_domain_key(ThreadPolicy& policy, const char* key, int length, int value)
{
    if (value < 1) return;
    if (key_is(key, length, kAllKey)) {
        store_if_unset(policy.num_threads, value);
        return;
    }
    for (int d = 1; d <= kDomainLast; ++d)
        if (key_is(key, length, kDomainKeys[d])) {
            store_if_unset(policy.domain_threads[d], value);
            return;
        }
}

// A base-10 integer that makes up the whole of `text` (or, with a non-zero
// `terminator`, is followed directly by it); -1 when it is not one or not
// positive.
int launcher_count(const char* text, char terminator)
{
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    if (end == text || *end != terminator || value < 1) return -1;
    return value > INT_MAX ? INT_MAX : static_cast<int>(value);
}

int read_into(EnvReader read, const char* name, char (&buf)[kEnvBufferSize])
{
    const int length = read(name, buf, kEnvBufferSize);
    if (length <= 0) return 0;
    // A longer value was cut to fit the buffer.
    return length < kEnvBufferSize ? length : kEnvBufferSize - 1;
}

}  // namespace

int parse_count_text(const char* text) { return count_of(text, static_cast<int>(std::strlen(text))); }

int parse_dynamic_text(const char* text)
{
    while (is_blank(*text) || is_quote(*text)) ++text;
    int length = 0;
    while (text[length] != '\0' && !is_blank(text[length]) && !is_quote(text[length])) ++length;
    if (key_is(text, length, "FALSE") || key_is(text, length, "false")) return 0;
    return 1;
}

void scan_domain_list(ThreadPolicy& policy, const char* text)
{
    auto separator = [](char c) { return is_blank(c) || is_quote(c) || c == ',' || c == ';' || c == ':'; };
    const char* p = text;
    for (;;) {
        while (*p != '\0' && separator(*p)) ++p;
        const char* key = p;
        while (*p != '\0' && *p != '=' && !is_quote(*p) && !is_blank(*p)) ++p;
        const int key_length = static_cast<int>(p - key);
        if (key_length == 0) return;
        while (is_blank(*p) || *p == '=') ++p;
        const char* value = p;
        while (*p != '\0' && !separator(*p)) ++p;
        assign_domain_key(policy, key, key_length, count_of(value, static_cast<int>(p - value)));
        // The scan resumes one character after the value; the end of the
        // text ends it.
        if (*p == '\0') return;
        ++p;
    }
}

int read_ranks_per_node(EnvReader read)
{
    struct Source {
        const char* name;
        char terminator;  // what must follow the count: nothing, or ':' of "count:map"
    };
    constexpr Source kSources[] = {
        {"ORV_MPI_PPN", '\0'},
        {"CX_MPI_NUMBER_OF_MPI_PROCESSES_PER_NODE", '\0'},
        {"CX_MPI_PIN_MAPPING", ':'},
        {"OMPI_COMM_WORLD_LOCAL_SIZE", '\0'},
        {"MPI_LOCALNRANKS", '\0'},
    };
    char buf[kEnvBufferSize];
    for (const Source& source : kSources) {
        if (read_into(read, source.name, buf) == 0) continue;
        const int ranks = launcher_count(buf, source.terminator);
        if (ranks > 0) return ranks;
    }
    return -1;
}

void read_policy_environment(ThreadPolicy& policy, EnvReader read)
{
    char buf[kEnvBufferSize];
    int length = read_into(read, "ORV_NUM_THREADS", buf);
    if (length > 0) {
        const int n = count_of(buf, length);
        if (n >= 1) store_if_unset(policy.num_threads, n);
    }

    if (read_into(read, "ORV_DOMAIN_NUM_THREADS", buf) > 0) scan_domain_list(policy, buf);

    if (policy.dynamic == -1) policy.dynamic = read_into(read, "ORV_DYNAMIC", buf) > 0 ? parse_dynamic_text(buf) : 1;

    length = read_into(read, "OMP_NUM_THREADS", buf);
    if (length > 0) {
        const int n = count_of(buf, length);
        if (n >= 1) policy.omp_threads_env = n;
    }

    policy.ranks_per_node = read_ranks_per_node(read);

    length = read_into(read, "CX_MPI_THREAD_LEVEL", buf);
    if (length > 0) {
        const int level = all_digits(buf, length) ? decimal_value(buf, length) : 0;
        policy.mpi_thread_level = level < 4 ? level : 0;
    }
}

void apply_topology(ThreadPolicy& policy, const Topology& topology)
{
    policy.logical_cpus = topology.logical_cpus > 0 ? topology.logical_cpus : 1;
    policy.physical_cores = topology.physical_cores > 0 ? topology.physical_cores : 1;
    policy.numa_nodes = topology.numa_nodes > 0 ? topology.numa_nodes : 1;
    policy.cores_per_node = policy.physical_cores / policy.numa_nodes;
    policy.hyperthreading = policy.physical_cores != policy.logical_cpus ? 1 : 0;
}

void store_requested_threads(ThreadPolicy& policy, int n)
{
    if (n > 0) __atomic_store_n(&policy.num_threads, n, __ATOMIC_RELAXED);
}

int decide_thread_count(const ThreadPolicy& policy, int domain, const ThreadQuery& query)
{
    if (query.thread_override > 0) return query.thread_override;
    if (policy.dynamic == 1 && query.in_parallel) return 1;

    int n = -1;
    if (domain >= 1 && domain <= kDomainLast && policy.domain_threads[domain] > 0) n = policy.domain_threads[domain];
    if (n <= 0) n = __atomic_load_n(&policy.num_threads, __ATOMIC_RELAXED);
    const bool user_set = n > 0;
    if (!user_set) n = query.omp_max_threads;

    if (policy.dynamic == 0) return n;

    const int m = policy.physical_cores < n ? policy.physical_cores : n;
    if (policy.ranks_per_node <= 0 || user_set || policy.omp_threads_env > 0) return m;
    // Under an MPI launcher with no explicit count, each process stays on
    // one thread unless the launcher announced thread support.
    if (policy.mpi_thread_level < 1) return 1;
    const int share = policy.physical_cores / policy.ranks_per_node;
    const int count = share < m ? share : m;
    return count > 1 ? count : 1;
}

// ---- This process ------------------------------------------------------------

namespace {

ThreadPolicy g_policy;
SpinLock g_policy_lock;

const ThreadPolicy& initialised_policy()
{
    if (__atomic_load_n(&g_policy.needs_init, __ATOMIC_ACQUIRE) != 0) {
        SpinGuard guard(g_policy_lock);
        if (g_policy.needs_init != 0) {
            read_policy_environment(g_policy, platform::read_env);
            apply_topology(g_policy, probe_topology());
            __atomic_store_n(&g_policy.needs_init, 0, __ATOMIC_RELEASE);
        }
    }
    return g_policy;
}

}  // namespace

int get_max_threads_for_domain(int domain)
{
    ThreadQuery query;
    query.thread_override = thread_count_override();
    if (query.thread_override > 0) return query.thread_override;
    const ThreadPolicy& policy = initialised_policy();
    query.in_parallel = omp_in_parallel();
    query.omp_max_threads = omp_get_max_threads();
    return decide_thread_count(policy, domain, query);
}

int get_max_threads() { return get_max_threads_for_domain(kDomainNone); }

int get_dynamic() { return initialised_policy().dynamic; }

void set_num_threads(int n) { store_requested_threads(g_policy, n); }

int get_physical_cores() { return initialised_policy().physical_cores; }
int get_cores_per_node() { return initialised_policy().cores_per_node; }
int get_hyperthreading() { return initialised_policy().hyperthreading; }
int get_numa_nodes() { return initialised_policy().numa_nodes; }
int get_logical_cpus() { return initialised_policy().logical_cpus; }
int get_ranks_per_node() { return initialised_policy().ranks_per_node; }

int get_domain_num_threads(int domain)
{
    if (domain < 1 || domain > kDomainLast) return -1;
    return initialised_policy().domain_threads[domain];
}

namespace {
ThreadSlot g_count_slot;
}  // namespace

int thread_count_override() { return static_cast<int>(static_cast<std::intptr_t>(g_count_slot.read())); }

void set_thread_count_override(int n) { g_count_slot.write(static_cast<std::uintptr_t>(static_cast<std::intptr_t>(n))); }

}  // namespace orv
