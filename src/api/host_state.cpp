#include "api/host_state.h"

#include <pthread.h>

velnor::HostState::HostState() {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancellation);
    std::fegetenv(&floatingPoint);
    std::fesetenv(FE_DFL_ENV);
}

velnor::HostState::~HostState() {
    blockedSignals.discardNew();
    std::fesetenv(&floatingPoint);
    pthread_setcancelstate(cancellation, nullptr);
}
