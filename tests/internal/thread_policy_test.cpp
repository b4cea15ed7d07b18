// The thread-count policy: its rules over a scripted environment and
// topology, the topology probe of this machine, and the real process.

#include <gtest/gtest.h>
#include <omp.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sched.h>
#endif

#include "child_process.h"
#include "orv.h"
#include "service/thread_policy.h"
#include "service/topology.h"

namespace {

using Vars = std::vector<std::pair<std::string, std::string>>;

// The environment the rules see through fake_read_env.
Vars g_fake_env;

int fake_read_env(const char* name, char* buf, int size)
{
    buf[0] = '\0';
    for (const auto& [key, value] : g_fake_env)
        if (key == name) {
            std::snprintf(buf, static_cast<std::size_t>(size), "%s", value.c_str());
            return static_cast<int>(value.size());
        }
    return 0;
}

std::string describe(const Vars& env)
{
    std::string text;
    for (const auto& [name, value] : env) text += name + "=" + value + " ";
    return text;
}

orv::ThreadPolicy policy_from(const Vars& env, orv::Topology topology, int set_before = 0)
{
    orv::ThreadPolicy policy;
    orv::store_requested_threads(policy, set_before);
    g_fake_env = env;
    orv::read_policy_environment(policy, fake_read_env);
    orv::apply_topology(policy, topology);
    return policy;
}

constexpr orv::Topology k8Cores{8, 8, 1};
constexpr orv::Topology k16Cores{32, 16, 2};
constexpr orv::Topology k3Cores{6, 3, 1};

struct PolicyCase {
    const char* name;
    Vars env;
    orv::Topology topology;
    int omp_max;
    int domain;
    int expected;
    int in_parallel = 0;
    int set_before = 0;  // orv_set_num_threads before the environment is read
    int set_after = 0;   // ... and after
    int thread_override = 0;
};

TEST(ThreadPolicy, DecisionRules)
{
    const int blas = orv::kDomainBlas, none = orv::kDomainNone, fft = orv::kDomainFft;
    const PolicyCase cases[] = {
        // ORV_NUM_THREADS: any non-digit asks for one thread; 0 is ignored.
        {"abc", {{"ORV_NUM_THREADS", "abc"}}, k8Cores, 8, blas, 1},
        {"4x", {{"ORV_NUM_THREADS", "4x"}}, k8Cores, 8, blas, 1},
        {"-2", {{"ORV_NUM_THREADS", "-2"}}, k8Cores, 8, blas, 1},
        {"zero ignored", {{"ORV_NUM_THREADS", "0"}}, k8Cores, 6, none, 6},
        {"three", {{"ORV_NUM_THREADS", "3"}}, k8Cores, 8, blas, 3},
        // Domain list: BLAS and general counts, each capped by the cores.
        {"all and blas, blas", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_ALL=2, ORV_DOMAIN_BLAS=4"}}, k8Cores, 8, blas, 4},
        {"all and blas, general", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_ALL=2, ORV_DOMAIN_BLAS=4"}}, k8Cores, 8, none, 2},
        {"all and blas, blas capped", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_ALL=2, ORV_DOMAIN_BLAS=4"}}, k3Cores, 8, blas, 3},
        {"first blas wins", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_BLAS=4;ORV_DOMAIN_BLAS=8"}}, k16Cores, 16, blas, 4},
        {"zero is no assignment", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_BLAS=0;ORV_DOMAIN_BLAS=5"}}, k8Cores, 8, blas, 5},
        {"ORV_NUM_THREADS beats ALL", {{"ORV_NUM_THREADS", "6"}, {"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_ALL=2"}}, k8Cores, 8, none, 6},
        {"other domain falls to general", {{"ORV_NUM_THREADS", "5"}, {"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_FFT=3"}}, k8Cores, 8, blas, 5},
        {"fft domain", {{"ORV_NUM_THREADS", "5"}, {"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_FFT=3"}}, k8Cores, 8, fft, 3},
        // Dynamic adjustment caps by the cores; only "FALSE"/"false" turn it off.
        {"16 on 8 cores", {{"ORV_NUM_THREADS", "16"}}, k8Cores, 8, blas, 8},
        {"False keeps dynamic", {{"ORV_NUM_THREADS", "16"}, {"ORV_DYNAMIC", "False"}}, k8Cores, 8, blas, 8},
        {"falsey keeps dynamic", {{"ORV_NUM_THREADS", "16"}, {"ORV_DYNAMIC", "falsey"}}, k8Cores, 8, blas, 8},
        {"0 keeps dynamic", {{"ORV_NUM_THREADS", "16"}, {"ORV_DYNAMIC", "0"}}, k8Cores, 8, blas, 8},
        {"false", {{"ORV_NUM_THREADS", "16"}, {"ORV_DYNAMIC", "false"}}, k8Cores, 8, blas, 16},
        {"FALSE", {{"ORV_NUM_THREADS", "16"}, {"ORV_DYNAMIC", "FALSE"}}, k8Cores, 8, blas, 16},
        {"quoted false", {{"ORV_NUM_THREADS", "16"}, {"ORV_DYNAMIC", " \"'false' x"}}, k8Cores, 8, blas, 16},
        {"omp maximum capped", {}, k8Cores, 12, blas, 8},
        {"omp maximum kept", {{"ORV_DYNAMIC", "false"}}, k8Cores, 12, blas, 12},
        // Inside an active parallel region.
        {"nested, dynamic", {{"ORV_NUM_THREADS", "4"}}, k8Cores, 8, blas, 1, 1},
        {"nested, not dynamic", {{"ORV_NUM_THREADS", "4"}, {"ORV_DYNAMIC", "false"}}, k8Cores, 8, blas, 4, 1},
        // The calling thread's own count overrides everything.
        {"own count", {{"ORV_NUM_THREADS", "4"}}, k8Cores, 8, blas, 12, 1, 0, 0, 12},
        // MPI launcher with dynamic adjustment on.
        {"ranks, no level", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}}, k16Cores, 16, blas, 1},
        {"ranks, level 3", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"CX_MPI_THREAD_LEVEL", "3"}}, k16Cores, 16, blas, 4},
        {"ranks, level 1", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"CX_MPI_THREAD_LEVEL", "1"}}, k16Cores, 16, blas, 4},
        {"ranks, level 0", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"CX_MPI_THREAD_LEVEL", "0"}}, k16Cores, 16, blas, 1},
        {"ranks, level 4", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"CX_MPI_THREAD_LEVEL", "4"}}, k16Cores, 16, blas, 1},
        {"ranks, level 3x", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"CX_MPI_THREAD_LEVEL", "3x"}}, k16Cores, 16, blas, 1},
        {"ranks, level 3, small omp", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"CX_MPI_THREAD_LEVEL", "3"}}, k16Cores, 2, blas, 2},
        {"more ranks than cores", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "32"}, {"CX_MPI_THREAD_LEVEL", "3"}}, k16Cores, 16, blas, 1},
        {"ranks, OMP_NUM_THREADS", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"OMP_NUM_THREADS", "8"}}, k16Cores, 8, blas, 8},
        {"ranks, OMP list", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"OMP_NUM_THREADS", "4,2"}}, k16Cores, 4, blas, 4},
        {"ranks, OMP 0 unset", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"OMP_NUM_THREADS", "0"}}, k16Cores, 16, blas, 1},
        {"ranks, explicit count", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"ORV_NUM_THREADS", "12"}}, k16Cores, 16, blas, 12},
        {"ranks, blas count", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_BLAS=3"}}, k16Cores, 16, blas, 3},
        {"ranks, not dynamic", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"ORV_DYNAMIC", "false"}}, k16Cores, 16, blas, 16},
        // orv_set_num_threads against the environment.
        {"set before env", {{"ORV_NUM_THREADS", "3"}}, k8Cores, 8, none, 5, 0, 5},
        {"set after env", {{"ORV_NUM_THREADS", "3"}}, k8Cores, 8, none, 5, 0, 0, 5},
        {"set 0 ignored", {{"ORV_NUM_THREADS", "3"}}, k8Cores, 8, none, 3, 0, 0, 0},
        {"set negative ignored", {{"ORV_NUM_THREADS", "3"}}, k8Cores, 8, none, 3, 0, -3, -3},
        {"set beats ALL", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_ALL=2"}}, k8Cores, 8, none, 6, 0, 6},
        {"domain beats set", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_BLAS=2"}}, k8Cores, 8, blas, 2, 0, 0, 6},
        {"set reaches domain", {{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_FFT=2"}}, k8Cores, 8, blas, 6, 0, 0, 6},
        {"set under ranks", {{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}}, k16Cores, 16, blas, 6, 0, 0, 6},
    };
    for (const PolicyCase& c : cases) {
        orv::ThreadPolicy policy = policy_from(c.env, c.topology, c.set_before);
        orv::store_requested_threads(policy, c.set_after);
        orv::ThreadQuery query;
        query.thread_override = c.thread_override;
        query.in_parallel = c.in_parallel;
        query.omp_max_threads = c.omp_max;
        EXPECT_EQ(orv::decide_thread_count(policy, c.domain, query), c.expected) << c.name;
    }
}

struct ScanCase {
    const char* text;
    int all, blas, fft, kor, tavelin;
};

TEST(ThreadPolicy, DomainListScanner)
{
    const ScanCase cases[] = {
        {"ORV_DOMAIN_ALL=2, ORV_DOMAIN_BLAS=4", 2, 4, -1, -1, -1},
        {"\"ORV_DOMAIN_FFT=3;ORV_DOMAIN_KOR=5:ORV_DOMAIN_TAVELIN=6\"", -1, -1, 3, 5, 6},
        {"'ORV_DOMAIN_BLAS=4' 'ORV_DOMAIN_FFT=2'", -1, 4, 2, -1, -1},
        {",,; :ORV_DOMAIN_BLAS=4", -1, 4, -1, -1, -1},
        {"ORV_DOMAIN_BLAS=4\tORV_DOMAIN_FFT=2", -1, 4, 2, -1, -1},
        {"ORV_DOMAIN_BLAS = =7", -1, 7, -1, -1, -1},
        // A value that is empty or not all digits counts as 1.
        {"ORV_DOMAIN_BLAS=x", -1, 1, -1, -1, -1},
        {"ORV_DOMAIN_BLAS=", -1, 1, -1, -1, -1},
        {"ORV_DOMAIN_BLAS", -1, 1, -1, -1, -1},
        {"ORV_DOMAIN_BLAS=4=5", -1, 1, -1, -1, -1},
        // A quote ends the value before it starts.
        {"ORV_DOMAIN_BLAS='4'", -1, 1, -1, -1, -1},
        {"ORV_DOMAIN_BLAS=99999999999", -1, INT_MAX, -1, -1, -1},
        // Keys are exact and case-sensitive; unknown keys are skipped.
        {"orv_domain_blas=4,ORV_DOMAIN_BLASX=4,ORV_DOMAIN=4", -1, -1, -1, -1, -1},
        {"OTHER=9,ORV_DOMAIN_BLAS=4", -1, 4, -1, -1, -1},
        // An empty key ends the scan.
        {"=3,ORV_DOMAIN_BLAS=4", -1, -1, -1, -1, -1},
        {"ORV_DOMAIN_FFT=2,=3,ORV_DOMAIN_BLAS=4", -1, -1, 2, -1, -1},
        {"", -1, -1, -1, -1, -1},
        // First valid assignment wins.
        {"ORV_DOMAIN_ALL=3,ORV_DOMAIN_ALL=5,ORV_DOMAIN_KOR=-1,ORV_DOMAIN_KOR=2", 3, -1, -1, 1, -1},
    };
    for (const ScanCase& c : cases) {
        orv::ThreadPolicy policy;
        orv::scan_domain_list(policy, c.text);
        const int* d = policy.domain_threads;
        EXPECT_EQ(policy.num_threads, c.all) << c.text;
        EXPECT_EQ(d[orv::kDomainBlas], c.blas) << c.text;
        EXPECT_EQ(d[orv::kDomainFft], c.fft) << c.text;
        EXPECT_EQ(d[orv::kDomainKor], c.kor) << c.text;
        EXPECT_EQ(d[orv::kDomainTavelin], c.tavelin) << c.text;
    }
}

TEST(ThreadPolicy, RanksPerNodeFromLaunchers)
{
    const struct {
        Vars env;
        int ranks;
    } cases[] = {
        {{{"CX_MPI_PIN_MAPPING", "4:0 0,1 2"}}, 4},
        {{{"CX_MPI_PIN_MAPPING", "4"}}, -1},
        {{{"CX_MPI_PIN_MAPPING", "0:0"}}, -1},
        {{{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}}, 4},
        {{{"OMPI_COMM_WORLD_LOCAL_SIZE", "4 "}}, -1},
        {{{"OMPI_COMM_WORLD_LOCAL_SIZE", "-4"}}, -1},
        {{{"MPI_LOCALNRANKS", "3"}}, 3},
        {{{"CX_MPI_NUMBER_OF_MPI_PROCESSES_PER_NODE", "5"}}, 5},
        // The order of the launchers decides; a source without a positive
        // count lets the next one speak.
        {{{"ORV_MPI_PPN", "2"}, {"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}}, 2},
        {{{"ORV_MPI_PPN", "0"}, {"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}}, 4},
        {{{"ORV_MPI_PPN", "2x"}, {"MPI_LOCALNRANKS", "6"}}, 6},
        {{{"MPI_LOCALNRANKS", "6"}, {"CX_MPI_PIN_MAPPING", "8:0"}}, 8},
        {{{"CX_MPI_PIN_MAPPING", "8:0"}, {"CX_MPI_NUMBER_OF_MPI_PROCESSES_PER_NODE", "5"}}, 5},
        {{}, -1},
    };
    for (const auto& c : cases) {
        g_fake_env = c.env;
        EXPECT_EQ(orv::read_ranks_per_node(fake_read_env), c.ranks) << describe(c.env);
    }
}

TEST(ThreadPolicy, TopologyDerivedFields)
{
    const struct {
        orv::Topology topology;
        int logical, cores, nodes, cores_per_node, hyperthreading;
    } cases[] = {
        {{16, 8, 2}, 16, 8, 2, 4, 1},
        {{8, 8, 1}, 8, 8, 1, 8, 0},
        {{6, 6, 4}, 6, 6, 4, 1, 0},
        {{0, 0, 0}, 1, 1, 1, 1, 0},
    };
    for (const auto& c : cases) {
        orv::ThreadPolicy policy;
        orv::apply_topology(policy, c.topology);
        EXPECT_EQ(policy.logical_cpus, c.logical);
        EXPECT_EQ(policy.physical_cores, c.cores);
        EXPECT_EQ(policy.numa_nodes, c.nodes);
        EXPECT_EQ(policy.cores_per_node, c.cores_per_node);
        EXPECT_EQ(policy.hyperthreading, c.hyperthreading);
    }
}

int processors_available()
{
#if defined(_WIN32)
    SYSTEM_INFO info;
    GetSystemInfo(&info);
    return static_cast<int>(info.dwNumberOfProcessors);
#else
    cpu_set_t set;
    CPU_ZERO(&set);
    return sched_getaffinity(0, sizeof set, &set) == 0 ? CPU_COUNT(&set) : -1;
#endif
}

TEST(Topology, ProbeOfThisMachine)
{
    const orv::Topology t = orv::probe_topology();
    EXPECT_EQ(t.logical_cpus, processors_available());
    EXPECT_GE(t.physical_cores, 1);
    EXPECT_LE(t.physical_cores, t.logical_cpus);
    EXPECT_GE(t.numa_nodes, 1);
    EXPECT_EQ(orv::get_logical_cpus(), t.logical_cpus);
    EXPECT_EQ(orv::get_physical_cores(), t.physical_cores);
    EXPECT_EQ(orv::get_cores_per_node(), t.physical_cores / t.numa_nodes);
}

TEST(ThreadPolicy, OwnCountBelongsToOneThread)
{
    EXPECT_EQ(orv::thread_count_override(), 0);
    orv::set_thread_count_override(7);
    EXPECT_EQ(orv::get_max_threads_for_domain(orv::kDomainBlas), 7);
    int other = -1;
    std::thread([&] { other = orv::thread_count_override(); }).join();
    EXPECT_EQ(other, 0);
    orv::set_thread_count_override(0);
    EXPECT_EQ(orv::thread_count_override(), 0);
}

// ---- The real process, one child per environment --------------------------------

const char* const kPolicyVariables[] = {
    "ORV_NUM_THREADS", "ORV_DOMAIN_NUM_THREADS", "ORV_DYNAMIC", "OMP_NUM_THREADS", "ORV_MPI_PPN",
    "CX_MPI_NUMBER_OF_MPI_PROCESSES_PER_NODE", "CX_MPI_PIN_MAPPING", "OMPI_COMM_WORLD_LOCAL_SIZE",
    "MPI_LOCALNRANKS", "CX_MPI_THREAD_LEVEL", "ORV_TEST_REQUEST",
};

void print_policy()
{
    std::printf("%d %d %d\n", orv_get_max_threads(), orv::get_max_threads_for_domain(orv::kDomainBlas),
                orv::get_dynamic());
}

// Prints the general count, the BLAS count and the dynamic flag, with a
// count requested before the first query when ORV_TEST_REQUEST says so; then
// changes the environment and prints them again.
TEST(ThreadPolicyChild, DISABLED_Report)
{
    orvtest::child_marker(orvtest::kCaseMarker);
    if (const char* request = std::getenv("ORV_TEST_REQUEST")) {
        const int n = std::atoi(request);
        orv_set_num_threads(&n);
    }
    print_policy();
    orvtest::set_env("ORV_NUM_THREADS", "2");
    orvtest::set_env("ORV_DYNAMIC", "false");
    orvtest::set_env("ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_BLAS=2");
    print_policy();
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(ThreadPolicyChild, DISABLED_InsideParallelRegion)
{
    orvtest::child_marker(orvtest::kCaseMarker);
    int inside = -1, active = 0;
#pragma omp parallel num_threads(2)
    {
#pragma omp master
        {
            active = omp_in_parallel();
            inside = orv_get_max_threads();
        }
    }
    // A serial machine gets no active region; say so instead of a count.
    std::printf("%d\n", active ? inside : -1);
    orvtest::child_marker(orvtest::kEndMarker);
}

std::vector<orvtest::EnvChange> child_env(const std::vector<orvtest::EnvChange>& set)
{
    std::vector<orvtest::EnvChange> env;
    for (const char* name : kPolicyVariables) env.emplace_back(name, nullptr);
    env.insert(env.end(), set.begin(), set.end());
    return env;
}

TEST(ThreadPolicy, RealProcessReadsEnvironmentOnce)
{
    const int cores = orv::get_physical_cores();
    const std::string both_capped = std::to_string(cores < 3 ? cores : 3);
    const struct {
        std::vector<orvtest::EnvChange> env;
        std::string line;  // printed twice: the environment is read once
    } cases[] = {
        {{{"ORV_NUM_THREADS", "abc"}}, "1 1 1"},
        {{{"ORV_NUM_THREADS", "64"}, {"ORV_DYNAMIC", "false"}}, "64 64 0"},
        {{{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_ALL=1, ORV_DOMAIN_BLAS=3"}, {"ORV_DYNAMIC", "false"}}, "1 3 0"},
        {{{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_BLAS=3"}, {"ORV_NUM_THREADS", "3"}}, both_capped + " " + both_capped + " 1"},
        {{{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}, {"OMP_NUM_THREADS", "1"}, {"ORV_DYNAMIC", "FALSE"}}, "1 1 0"},
        {{{"OMPI_COMM_WORLD_LOCAL_SIZE", "4"}}, "1 1 1"},
        {{{"ORV_NUM_THREADS", "3"}, {"ORV_DYNAMIC", "false"}, {"ORV_TEST_REQUEST", "5"}}, "5 5 0"},
        {{{"ORV_NUM_THREADS", "3"}, {"ORV_DYNAMIC", "false"}, {"ORV_TEST_REQUEST", "-3"}}, "3 3 0"},
    };
    for (const auto& c : cases) {
        const orvtest::ChildResult child = orvtest::run_child("ThreadPolicyChild.DISABLED_Report", child_env(c.env));
        ASSERT_EQ(child.status, 0) << child.out;
        const auto printed = orvtest::split_cases(child.out);
        ASSERT_EQ(printed.size(), 1u) << child.out;
        EXPECT_EQ(printed[0], c.line + "\n" + c.line + "\n") << c.env.front().first << "=" << c.env.front().second;
    }
}

TEST(ThreadPolicy, RealProcessInsideParallelRegion)
{
    const struct {
        std::vector<orvtest::EnvChange> env;
        const char* line;
    } cases[] = {
        {{{"ORV_NUM_THREADS", "4"}}, "1\n"},
        {{{"ORV_NUM_THREADS", "4"}, {"ORV_DYNAMIC", "false"}}, "4\n"},
    };
    for (const auto& c : cases) {
        const orvtest::ChildResult child =
            orvtest::run_child("ThreadPolicyChild.DISABLED_InsideParallelRegion", child_env(c.env));
        ASSERT_EQ(child.status, 0) << child.out;
        const auto printed = orvtest::split_cases(child.out);
        ASSERT_EQ(printed.size(), 1u) << child.out;
        if (printed[0] == "-1\n") GTEST_SKIP() << "no active parallel region on this machine";
        EXPECT_EQ(printed[0], c.line);
    }
}

}  // namespace
