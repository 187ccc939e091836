#include "api/application_gate.h"

#include <pthread.h>

namespace {

// Threads that draw without a pause would never let a change in otherwise, as std::shared_mutex does.
pthread_rwlock_t gate = PTHREAD_RWLOCK_WRITER_NONRECURSIVE_INITIALIZER_NP;

} // namespace

velnor::CallInFlight::CallInFlight() : held(pthread_rwlock_rdlock(&gate) == 0) {}

velnor::CallInFlight::~CallInFlight() {
    if (held) {
        pthread_rwlock_unlock(&gate);
    }
}

velnor::ApplicationChange::ApplicationChange() {
    pthread_rwlock_wrlock(&gate);
}

velnor::ApplicationChange::~ApplicationChange() {
    pthread_rwlock_unlock(&gate);
}
