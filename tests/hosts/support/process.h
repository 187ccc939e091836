/* What a host sees of its own process. */
#ifndef VELNOR_TESTS_HOSTS_PROCESS_H
#define VELNOR_TESTS_HOSTS_PROCESS_H

#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

int countThreads(void);
/* Number and target of each open descriptor, one a line. */
const char* openFiles(void);

/* Checks that the child process ends with exit code 0. */
void checkChildSucceeds(pid_t child);

#ifdef __cplusplus
}
#endif

#endif
