/* Work that may end its process, done in a child: how it ended, and in whose code. */
#ifndef VELNOR_TESTS_DEATHS_H
#define VELNOR_TESTS_DEATHS_H

enum { MostFrames = 100, LongestName = 64 };

typedef struct Ending {
    long result;             /* what the work returned */
    int signal;              /* that ended the child; 0 when the work returned */
    char where[LongestName]; /* the library whose code ran last, run-time libraries left out */
    int frameCount;
    void* frames[MostFrames];
} Ending;

/* Does the work in a child of this process. One that takes longer, or that waits
 * for a lock, which its only thread cannot get, is ended by SIGALRM. */
Ending endingOf(long (*work)(void* argument), void* argument, unsigned seconds);

/* Prints the stack of a death, a frame a line. */
void printStack(const Ending* ending);

#endif
