#include "core/MappingGuard.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>

namespace ortelix::mapping_guard {

namespace {

struct Slot {
    std::atomic<int> used{0};
    std::atomic<uintptr_t> begin{0};  // 0 while the slot holds no mapping
    std::atomic<uintptr_t> end{0};    // page-rounded end of the mapping
    std::atomic<int> cut{0};
};
static_assert(std::atomic<uintptr_t>::is_always_lock_free && std::atomic<int>::is_always_lock_free,
              "the signal handler may only touch lock-free atomics");

constexpr int kSlots = 64;

// The one mutable global of the program, and why: a signal handler receives
// nothing but the faulting address, so the mappings it must recognise have to
// be reachable without a Session. A fixed array of lock-free atomics is all
// that an async-signal-safe handler may read; it is constant-initialised, so
// there is no start-up order to get wrong.
Slot g_slots[kSlots];
std::atomic<uintptr_t> g_pageSize{4096};
struct sigaction g_previous;  // written once before the handler goes in, only read after
std::once_flag g_installed;

void OnBusError(int sig, siginfo_t* info, void*) {
    const uintptr_t address = reinterpret_cast<uintptr_t>(info->si_addr);
    const uintptr_t page = g_pageSize.load(std::memory_order_relaxed);
    for (Slot& s : g_slots) {
        const uintptr_t begin = s.begin.load(std::memory_order_acquire);
        if (begin == 0 || address < begin) continue;
        const uintptr_t end = s.end.load(std::memory_order_acquire);
        if (address >= end) continue;
        // Zero pages from the faulting page to the end of the mapping: one
        // signal for the whole cut-off tail, and the walk reads it as NULs.
        const uintptr_t from = address & ~(page - 1);
        void* p = ::mmap(reinterpret_cast<void*>(from), end - from, PROT_READ, MAP_FIXED | MAP_PRIVATE | MAP_ANONYMOUS,
                         -1, 0);
        if (p == MAP_FAILED) break;
        s.cut.store(1, std::memory_order_release);
        return;
    }
    // Not one of ours: the action that was there before (normally the default,
    // which ends the program), for a fault by repeating the instruction.
    ::sigaction(sig, &g_previous, nullptr);
    if (info->si_code <= 0) ::raise(sig);  // sent by a process, not by a fault
}

void Install() {
    g_pageSize.store(static_cast<uintptr_t>(::sysconf(_SC_PAGESIZE)), std::memory_order_relaxed);
    struct sigaction sa {};
    sa.sa_sigaction = OnBusError;
    sa.sa_flags = SA_SIGINFO;
    sigemptyset(&sa.sa_mask);
    ::sigaction(SIGBUS, &sa, &g_previous);
}

}  // namespace

int Register(const void* begin, size_t length) {
    std::call_once(g_installed, Install);
    const uintptr_t page = g_pageSize.load(std::memory_order_relaxed);
    const uintptr_t b = reinterpret_cast<uintptr_t>(begin);
    const uintptr_t e = b + (length + page - 1) / page * page;
    for (int i = 0; i < kSlots; ++i) {
        Slot& s = g_slots[i];
        int expected = 0;
        if (!s.used.compare_exchange_strong(expected, 1, std::memory_order_acq_rel)) continue;
        s.cut.store(0, std::memory_order_relaxed);
        s.end.store(e, std::memory_order_release);
        s.begin.store(b, std::memory_order_release);
        return i;
    }
    return -1;
}

void Unregister(int slot) {
    if (slot < 0 || slot >= kSlots) return;
    Slot& s = g_slots[slot];
    s.begin.store(0, std::memory_order_release);
    s.end.store(0, std::memory_order_release);
    s.used.store(0, std::memory_order_release);
}

bool Cut(int slot) {
    return slot >= 0 && slot < kSlots && g_slots[slot].cut.load(std::memory_order_acquire) != 0;
}

}  // namespace ortelix::mapping_guard
