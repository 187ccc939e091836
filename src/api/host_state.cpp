#include "api/host_state.h"

#include <pthread.h>

velnor::HostState::HostState() : fileSizeSignal(SIGXFSZ) {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancellation);
    std::fegetenv(&floatingPoint);
    std::fesetenv(FE_DFL_ENV);
}

velnor::HostState::~HostState() {
    fileSizeSignal.takeBack();
    std::fesetenv(&floatingPoint);
    pthread_setcancelstate(cancellation, nullptr);
}
