/* The library as a program sees it that was not linked with it. */
#ifndef VELNOR_TESTS_HOSTS_LOADED_LIBRARY_H
#define VELNOR_TESTS_HOSTS_LOADED_LIBRARY_H

#include <pthread.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct Library {
    void* loaded;
    void (*initialize)(void);
    int (*isInitialized)(void);
    void* (*createHandler)(const char* document);
    int (*createImage)(void* handler, const char* output);
    int (*freeHandler)(void* handler);
    int (*setKeepFlag)(int flag);
    int (*getFontProperty)(void* handler, const char* family, int* bold, int* italic);
    const int* startedByLibrary;
} Library;

/* The flags are those of dlopen(3). */
Library loadLibrary(const char* path, int flags);
void unloadLibrary(Library library);
/* The address of a symbol in the library or in what it was linked with. */
void* symbolIn(void* loaded, const char* name);

/* Runs the application on a thread and returns once it is up. */
pthread_t startLoaded(const Library* library);
/* Quits whatever Qt application there is, and joins its thread. */
void quitAndJoin(pthread_t starter);

/* Draws with a handler of its own and returns the path of the output, in the scratch folder. */
const char* drawWith(const Library* library, const char* document, const char* output);
/* Loads the library, draws and ends normally, all in a process of its own. */
void drawInChildWith(int flags, const char* document, const char* output);

#ifdef __cplusplus
}
#endif

#endif
