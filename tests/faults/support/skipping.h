/* Cases that this machine cannot run. */
#ifndef VELNOR_TESTS_SKIPPING_H
#define VELNOR_TESTS_SKIPPING_H

/* Ends the process in the way that CTest reports as skipped. */
__attribute__((noreturn, format(printf, 1, 2))) void skipCase(const char* format, ...);

#endif
