// The Qt application that the library lives in: the host's, or one of its own.
#ifndef VELNOR_API_QT_RUNTIME_H
#define VELNOR_API_QT_RUNTIME_H

#include <atomic>

// 1 once the Qt application is known to exist, made here or found.
extern std::atomic<int> qtStarted;

// The arguments of the application that is made here. Qt keeps references to both for the
// application's whole life.
extern int qtargc;
extern char** qtargv;

#endif
