/* What a host without Qt does around the library, and what it can see of itself. */
#ifndef VELNOR_TESTS_HOST_H
#define VELNOR_TESTS_HOST_H

#ifdef __cplusplus
extern "C" {
#endif

/* Runs the library's application on a thread of its own and returns once it is up. */
void startLibrary(void);
/* Polls until the library answers `wanted`. */
void waitForInitialized(int wanted);
void sleepMilliseconds(long duration);

/* Sends standard output and standard error to files until the end of the case. */
void captureOutput(void);
/* Checks that nothing was printed since captureOutput. */
void checkSilent(void);

/* The wait status of another program that renders the document and returns from main at once. */
int runSmallHost(const char* document, const char* output);

/* Without the fonts of the machine only those count that a handler registers. Call it before the
 * application is made. Glyphs are hinted as Debian does. */
void hideSystemFonts(void);

#ifdef __cplusplus
}
#endif

#endif
