/* The library's application on a thread that can be joined. */
#ifndef VELNOR_TESTS_HOSTS_APPLICATION_H
#define VELNOR_TESTS_HOSTS_APPLICATION_H

#include <pthread.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Returns once the application is up. */
pthread_t startApplication(void);
/* Quits it and joins its thread; returns what that returned. */
void* endApplication(pthread_t starter);

#ifdef __cplusplus
}
#endif

#endif
