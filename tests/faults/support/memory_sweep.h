/* Runs calls of the library again and again while one allocation after the other fails. */
#ifndef VELNOR_TESTS_MEMORY_SWEEP_H
#define VELNOR_TESTS_MEMORY_SWEEP_H

typedef struct MemorySweep {
    const char* name;
    /* The calls that run out of memory. They may fail, and should not allocate on their own. */
    void (*call)(void);
    /* Afterwards, with memory: whether everything works as if nothing had been. */
    int (*worksAgain)(void);
} MemorySweep;

typedef struct SweepResult {
    long allocations;    /* that the calls make */
    int tries;           /* runs with a failure in it */
    int deaths;          /* of these, that ended the process */
    int deathsInOurCode; /* of these, in the code of the library under test */
    int aborts;          /* of these, by an exception that nobody could catch, and the like */
    int hangs;           /* of these, where it waited without an end, or for too long */
    int notAsBefore;     /* runs after which not everything worked */
} SweepResult;

/* Tries each allocation, or a sample of them, once as the only one that fails and once as the first
 * of all that fail. Prints where the process died. In the environment, VELNOR_FAULTS_SAMPLE is the
 * size of the sample (0: every allocation), and VELNOR_FAULTS_STACKS set prints a stack of each
 * kind of death. */
SweepResult sweepMemory(const MemorySweep* sweep);

#endif
