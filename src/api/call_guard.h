// What every exported function has in common: the host's thread keeps its own state, no exception
// leaves the call, a null handler is refused, and results are folded to 0 and -1.
#ifndef VELNOR_API_CALL_GUARD_H
#define VELNOR_API_CALL_GUARD_H

#include "api/host_state.h"
#include "api/host_thread.h"
#include "handler/font_lock.h"
#include "handler/velnorxml.h"
#include "spare_memory.h"

namespace velnor {

constexpr int Success = 0;
constexpr int Failure = -1;

// The result of `work`, or the failure value when memory runs out or anything else is thrown.
template <typename Result, typename Work>
Result guarded(Result failure, Work work) noexcept {
    const HostState state;
    try {
        return work();
    } catch (...) {
        return failure;
    }
}

// The same for a call of the host's. What takes memory is not begun without.
template <typename Result, typename Work>
Result hostCall(Result failure, Work work) noexcept {
    return guarded(failure, [&] {
        requireMemory(0);
        const HostThread thread;
        return work();
    });
}

// Calls `work` with the handler behind the pointer; any non-zero result becomes -1.
template <typename Work>
int withHandler(void* handle, Work work) noexcept {
    if (handle == nullptr) {
        return Failure;
    }
    return hostCall(Failure, [&] {
        const FontReadLock fonts;
        return work(*static_cast<VelnorXml*>(handle)) == 0 ? Success : Failure;
    });
}

} // namespace velnor

#endif
