/* Limits to the memory of the process, from what is enough downwards: a call makes the whole
 * picture or fails, and with memory everything works again.
 *
 * The variable VELNOR_FAULTS_STEP sets the distance in KiB of the limits that are tried below what
 * is enough, for long runs: 64 tries every one that can make a difference. VELNOR_FAULTS_LAYOUT
 * names another layout for the first case. */
#include "support/children.h"
#include "support/deaths.h"
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <malloc.h>
#include <pthread.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/resource.h>
#include <unistd.h>

enum {
    KiB = 1024,
    MostNeeded = 1024 * 1024 /* KiB */,
    UsualStep = 8192 /* KiB */,
    CloseStep = 64 /* KiB */,
    CloseSteps = 8,
    MostForStart = 48 * 1024 /* KiB */,
    StartStep = 1536 /* KiB */,
    LongestCall = 30 /* seconds */
};

enum Outcome { Drawn, Refused, OtherPicture, OtherResult, NotAsBefore };

/* Calls the library, lifts the limit, and judges what it did. */
typedef long (*Attempt)(void);

typedef struct Limit {
    long spare; /* KiB beside what the process has at the time of the call */
    Attempt attempt;
} Limit;

static void* handler;
static const char* output;

static void limitMemory(rlim_t most) {
    const struct rlimit limit = {most, RLIM_INFINITY};
    CHECK(setrlimit(RLIMIT_AS, &limit) == 0);
}

static void liftLimit(void) {
    limitMemory(RLIM_INFINITY);
}

static rlim_t usedMemory(void) {
    long pages = 0;
    FILE* file = fopen("/proc/self/statm", "r");
    CHECK(file != NULL && fscanf(file, "%ld", &pages) == 1 && fclose(file) == 0);
    return (rlim_t)pages * (rlim_t)sysconf(_SC_PAGESIZE);
}

static long drawPicture(void) {
    remove(output);
    const int result = xmlToImgCreateImage(handler, output);
    liftLimit();
    if (!exists(output)) {
        return result == -1 ? Refused : OtherResult;
    }
    return result == 0 && sameContent(output, "expected.png") ? Drawn : OtherPicture;
}

static long callWithin(void* argument) {
    const Limit* limit = argument;
    limitMemory(usedMemory() + (rlim_t)limit->spare * KiB);
    const long outcome = limit->attempt();
    return drawPicture() == Drawn ? outcome : NotAsBefore;
}

static long outcomeWithin(long spare, Attempt attempt) {
    Limit limit = {spare, attempt};
    const Ending ending = endingOf(callWithin, &limit, LongestCall);
    if (ending.signal != 0) {
        printStack(&ending);
        failCase(__FILE__, __LINE__, "%ld KiB to spare: ended by signal %d in %s", spare,
                 ending.signal, ending.where);
    }
    if (ending.result != Drawn && ending.result != Refused) {
        failCase(__FILE__, __LINE__, "%ld KiB to spare: outcome %ld", spare, ending.result);
    }
    return ending.result;
}

/* The smallest limit, to a few KiB, that is enough. */
static long enoughFor(Attempt attempt) {
    long enough = MostNeeded;
    long tooLittle = 0;
    CHECK_INT(Drawn, outcomeWithin(enough, attempt));
    while (enough - tooLittle > CloseStep) {
        const long middle = (enough + tooLittle) / 2;
        if (outcomeWithin(middle, attempt) == Drawn) {
            enough = middle;
        } else {
            tooLittle = middle;
        }
    }
    return enough;
}

static void tryLimits(Attempt attempt) {
    const char* wanted = getenv("VELNOR_FAULTS_STEP");
    const long step = wanted != NULL ? atol(wanted) : UsualStep;
    const long enough = enoughFor(attempt);
    printf("%ld KiB are enough\n", enough);
    for (int i = 0; i < CloseSteps; ++i) {
        outcomeWithin(enough + (i - CloseSteps / 2) * CloseStep, attempt);
    }
    for (long spare = enough; spare >= 0; spare -= step) {
        outcomeWithin(spare, attempt);
    }
}

static void prepare(void) {
    /* Memory that the allocator keeps for other threads would not count. */
    CHECK(mallopt(M_ARENA_MAX, 1) == 1);
    output = pathOf("page.png");
}

static void startWithDocument(const char* document) {
    prepare();
    startLibrary();
    renderInChild(document, "expected.png");
    handler = xmlToImgCreateHandler(document);
    CHECK(handler != NULL);
}

static void everyLimitOfDrawing(const char* document) {
    startWithDocument(document);
    tryLimits(drawPicture);
}

#define EXAMPLE(name) VELNOR_EXAMPLE_LAYOUTS "/" name ".xml"

CASE(every_limit_makes_the_whole_receipt_or_none) {
    const char* wanted = getenv("VELNOR_FAULTS_LAYOUT");
    everyLimitOfDrawing(wanted != NULL ? wanted : EXAMPLE("receipt"));
}

CASE(every_limit_makes_the_whole_boarding_pass_or_none) {
    everyLimitOfDrawing(EXAMPLE("boarding_pass"));
}

CASE(every_limit_makes_a_whole_roll_of_fine_dots_or_none) {
    everyLimitOfDrawing(writeLayout("page.xml", "<dpi>300</dpi><width>600</width>" BOX QR_CODE));
}

CASE(every_limit_makes_the_whole_of_a_long_text_or_none) {
    enum { Length = 100000 };
    static char text[Length + 1];
    memset(text, 'm', Length);
    for (int i = 0; i < Length; i += 8) {
        text[i] = ' ';
    }
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    everyLimitOfDrawing(writeLayout(
        "page.xml", textOf("<width>600</width><height>800</height><VelnorItem class='text'>"
                           "<width>600</width><flags>4096</flags><fontsize>4</fontsize>"
                           "<fontname>Liberation Sans</fontname><text>%s</text></VelnorItem>",
                           text)));
}

CASE(every_limit_makes_a_further_receipt_or_none) {
    startWithDocument(EXAMPLE("receipt"));
    CHECK_INT(Drawn, drawPicture());
    tryLimits(drawPicture);
}

static long makeHandler(void) {
    void* made = xmlToImgCreateHandler(EXAMPLE("receipt"));
    liftLimit();
    /* Not freed: that would take the fonts from the other one. */
    return made == NULL ? Refused : Drawn;
}

CASE(every_limit_makes_a_handler_or_none) {
    startWithDocument(EXAMPLE("receipt"));
    tryLimits(makeHandler);
}

static long checkDocument(void) {
    char text[1024];
    const int result = xmlToImgCheckCorrect(handler, text, sizeof text);
    liftLimit();
    return result == 0 ? Drawn : Refused;
}

CASE(every_limit_checks_the_document_or_fails) {
    startWithDocument(EXAMPLE("receipt"));
    tryLimits(checkDocument);
}

/* A document whose tree takes some 50 MiB. */
static const char* writeLargeLayout(void) {
    const char* path = pathOf("large.xml");
    FILE* file = fopen(path, "w");
    CHECK(file != NULL);
    fputs("<VelnorRoot><VelnorItems class='canvas'><width>100</width><height>100</height>", file);
    for (int i = 0; i < 15000; ++i) {
        fprintf(file,
                "<VelnorItem class='text' id='t%d'><x>1</x><y>2</y><text>abc</text></VelnorItem>",
                i);
    }
    fputs("</VelnorItems></VelnorRoot>", file);
    CHECK(fclose(file) == 0);
    return path;
}

static long drawLargeThenSmall(void* argument) {
    const long* spare = argument;
    void* large = xmlToImgCreateHandler(writeLargeLayout());
    CHECK_INT(0, xmlToImgCreateImage(handler, output));
    limitMemory(usedMemory() + (rlim_t)*spare * KiB);
    int failures = 0;
    for (int i = 0; i < 5; ++i) {
        failures += xmlToImgCreateImage(large, pathOf("large.png")) == -1;
    }
    int drawn = 0;
    for (int i = 0; i < 20; ++i) {
        drawn += xmlToImgCreateImage(handler, output) == 0;
    }
    liftLimit();
    return failures == 5 && drawn == 20 ? Drawn : NotAsBefore;
}

CASE(after_a_document_that_is_too_large_for_the_memory_others_are_drawn) {
    startWithDocument(writeLayout("small.xml", CANVAS_OF(100, 100) BOX));
    for (long spare = 24 * KiB; spare <= 48 * KiB; spare += UsualStep) {
        const Ending ending = endingOf(drawLargeThenSmall, &spare, LongestCall);
        if (ending.signal != 0 || ending.result != Drawn) {
            failCase(__FILE__, __LINE__, "%ld KiB to spare: signal %d in %s, outcome %ld", spare,
                     ending.signal, ending.where, ending.result);
        }
    }
}

static long listFonts(void) {
    int bold = 0;
    int italic = 0;
    char* list = xmlToImgAvailableFontList();
    const int found = xmlToImgGetFontProperty(handler, "Liberation Sans", &bold, &italic) == 0;
    liftLimit();
    const int listed = list != NULL && strstr(list, "Liberation Sans") != NULL;
    xmlToImgFreeFontList(list);
    return found && listed ? Drawn : Refused;
}

CASE(every_limit_lists_the_fonts_or_none) {
    startWithDocument(EXAMPLE("receipt"));
    tryLimits(listFonts);
}

static void* runApplicationLater(void* isLimited) {
    while (!atomic_load((atomic_int*)isLimited)) {
        sleepMilliseconds(1);
    }
    xmlToImgInitializeQtNoReturn();
    atomic_store((atomic_int*)isLimited, 0);
    return NULL;
}

/* The thread is there before the limit: its stack is the host's affair. */
static long startWithin(void* argument) {
    const long* spare = argument;
    static atomic_int isLimited;
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, runApplicationLater, &isLimited) == 0);
    limitMemory(usedMemory() + (rlim_t)*spare * KiB);
    atomic_store(&isLimited, 1);
    while (xmlToImgQtInitialized() == 0 && atomic_load(&isLimited)) {
        sleepMilliseconds(1);
    }
    const int isUp = xmlToImgQtInitialized();
    liftLimit();
    if (!isUp) {
        startLibrary();
    }
    handler = xmlToImgCreateHandler(EXAMPLE("receipt"));
    remove(output);
    CHECK_INT(0, xmlToImgCreateImage(handler, output));
    return exists(output) ? Drawn : NotAsBefore;
}

CASE(every_limit_starts_the_library_or_not) {
    prepare();
    for (long spare = 0; spare <= MostForStart; spare += StartStep) {
        const Ending ending = endingOf(startWithin, &spare, LongestCall);
        if (ending.signal != 0 || ending.result != Drawn) {
            failCase(__FILE__, __LINE__, "%ld KiB to spare: signal %d in %s, outcome %ld", spare,
                     ending.signal, ending.where, ending.result);
        }
    }
}
