/* What a host in C reaches of Qt: it looks the functions up in the process. */
#ifndef VELNOR_TESTS_HOSTS_QT_SYMBOLS_H
#define VELNOR_TESTS_HOSTS_QT_SYMBOLS_H

#ifdef __cplusplus
extern "C" {
#endif

/* Asks the application, on its own thread, to quit. The start-up function returns soon after. */
void quitApplication(void);
/* The same where Qt is reached only through a handle of dlopen(3). */
void quitApplicationOf(void* loaded);

#ifdef __cplusplus
}
#endif

#endif
