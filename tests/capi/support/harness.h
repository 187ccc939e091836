/* A test program holds cases; CTest runs each of them as a process of its own. A case passes when
 * it returns and the process then ends with exit code 0. */
#ifndef VELNOR_TESTS_HARNESS_H
#define VELNOR_TESTS_HARNESS_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct Case {
    const char* name;
    void (*run)(void);
    struct Case* next;
} Case;

void addCase(Case* added);

/* Defines a case. The build finds the cases by this word at the start of a line. */
#define CASE(caseName)                                                                             \
    static void caseName(void);                                                                    \
    __attribute__((constructor)) static void addCase_##caseName(void) {                            \
        static Case added = {#caseName, caseName, NULL};                                           \
        addCase(&added);                                                                           \
    }                                                                                              \
    static void caseName(void)

/* Ends the process with a message that names the failed line. */
__attribute__((noreturn, format(printf, 3, 4))) void failCase(const char* file, int line,
                                                              const char* format, ...);
/* Where those messages go: standard error, until a case sends that somewhere else. */
void sendFailuresTo(int descriptor);
void checkInt(const char* file, int line, const char* what, long long expected, long long actual);
void checkText(const char* file, int line, const char* what, const char* expected,
               const char* actual);

#define CHECK(condition)                                                                           \
    ((condition) ? (void)0 : failCase(__FILE__, __LINE__, "not true: %s", #condition))
#define CHECK_INT(expected, actual) checkInt(__FILE__, __LINE__, #actual, expected, actual)
#define CHECK_TEXT(expected, actual) checkText(__FILE__, __LINE__, #actual, expected, actual)

/* Memory that lives until the process ends, so that a case need not free what helpers return. */
void* caseMemory(size_t size);

/* The folder of the running case; it is empty at first and removed with everything in it. */
const char* scratchFolder(void);

#ifdef __cplusplus
}
#endif

#endif
