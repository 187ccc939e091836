// A thread whose events come from the dispatcher under test.
#ifndef VELNOR_TESTS_DISPATCHED_THREAD_H
#define VELNOR_TESTS_DISPATCHED_THREAD_H

#include "api/event_dispatcher.h"

#include <functional>

using DispatcherWork = std::function<void(velnor::EventDispatcher&)>;

// Runs `work` on such a thread and returns when it has ended.
void onDispatchedThread(const DispatcherWork& work);

// Waits for events and handles them until `reached` is true.
void processUntil(velnor::EventDispatcher& dispatcher, const std::function<bool()>& reached);

#endif
