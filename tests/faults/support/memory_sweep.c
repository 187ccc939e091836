#include "support/memory_sweep.h"

#include "support/deaths.h"
#include "support/failing_memory.h"
#include "support/harness.h"
#include "support/random.h"

#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { MostPlaces = 32, UsualSample = 25, LongestTry = 10 /* seconds */ };

#define OUR_LIBRARY "libvelnorxmltoimg"

typedef struct Try {
    const MemorySweep* sweep;
    long first;
    long count;
} Try;

typedef struct Place {
    char name[LongestName];
    int signal;
    int deaths;
} Place;

static Place places[MostPlaces];
static int placeCount;

static long countCalls(void* argument) {
    const Try* tried = argument;
    failAllocations(NoAllocation, 0);
    tried->sweep->call();
    return stopFailing();
}

static long callsWork(void* argument) {
    const Try* tried = argument;
    failAllocations(tried->first, tried->count);
    tried->sweep->call();
    stopFailing();
    return tried->sweep->worksAgain();
}

/* Tells whether a death of this kind is the first of its kind. */
static int noteDeath(const Ending* ending) {
    for (int i = 0; i < placeCount; ++i) {
        if (places[i].signal == ending->signal && strcmp(places[i].name, ending->where) == 0) {
            ++places[i].deaths;
            return 0;
        }
    }
    CHECK(placeCount < MostPlaces);
    Place* place = &places[placeCount++];
    snprintf(place->name, sizeof place->name, "%s", ending->where);
    place->signal = ending->signal;
    place->deaths = 1;
    return 1;
}

static void noteEnding(SweepResult* result, const Try* tried, const Ending* ending) {
    ++result->tries;
    if (ending->signal == 0) {
        result->notAsBefore += ending->result == 0;
        if (ending->result == 0) {
            printf("  allocation %ld: not as before\n", tried->first);
        }
        return;
    }
    const int isHang = ending->signal == SIGALRM;
    const int isOurs = strncmp(ending->where, OUR_LIBRARY, strlen(OUR_LIBRARY)) == 0;
    ++result->deaths;
    result->aborts += ending->signal == SIGABRT;
    result->hangs += isHang;
    result->deathsInOurCode += isOurs && !isHang;
    if (noteDeath(ending) && getenv("VELNOR_FAULTS_STACKS") != NULL) {
        printf("  allocation %ld: signal %d in %s\n", tried->first, ending->signal, ending->where);
        printStack(ending);
    }
}

static long sampleSize(long allocations) {
    const char* wanted = getenv("VELNOR_FAULTS_SAMPLE");
    const long size = wanted != NULL ? atol(wanted) : UsualSample;
    return size == 0 || size > allocations ? allocations : size;
}

/* One allocation of each of as many stretches of the same length. */
static void tryAllocations(SweepResult* result, const MemorySweep* sweep, long count) {
    Random random = {4711};
    const long size = sampleSize(result->allocations);
    for (long i = 0; i < size; ++i) {
        const long from = result->allocations * i / size;
        const long to = result->allocations * (i + 1) / size;
        Try tried = {sweep, from + randomBelow(&random, (uint32_t)(to - from)), count};
        const Ending ending = endingOf(callsWork, &tried, LongestTry);
        noteEnding(result, &tried, &ending);
    }
}

static void printPlaces(void) {
    for (int i = 0; i < placeCount; ++i) {
        printf("  %d deaths in %s by signal %d (%s)\n", places[i].deaths, places[i].name,
               places[i].signal, strsignal(places[i].signal));
    }
    placeCount = 0;
}

static void tryMode(SweepResult* result, const MemorySweep* sweep, const char* mode, long count) {
    const SweepResult before = *result;
    tryAllocations(result, sweep, count);
    printf("%s, %s: %ld allocations, %d tries, %d deaths\n", sweep->name, mode, result->allocations,
           result->tries - before.tries, result->deaths - before.deaths);
    printPlaces();
}

SweepResult sweepMemory(const MemorySweep* sweep) {
    SweepResult result = {0};
    Try none = {sweep, NoAllocation, 0};
    const Ending counted = endingOf(countCalls, &none, LongestTry);
    CHECK_INT(0, counted.signal);
    result.allocations = counted.result;
    CHECK(result.allocations > 0);
    tryMode(&result, sweep, "one fails", OneAllocation);
    tryMode(&result, sweep, "all further fail", ALL_FURTHER_ALLOCATIONS);
    return result;
}
