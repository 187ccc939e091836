/* Documents and parameter files that are no ordinary files: refused at once. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/pipes.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

enum { ListSize = 64 };

/* Every function that reads a document fails as for a document that does not exist. */
static void checkNoDocument(const char* document) {
    char text[ListSize] = "before";
    unsigned short wide[ListSize] = {'b', 0};
    int settings[3] = {7, 7, 7};
    void* handler = xmlToImgCreateHandler(document);
    CHECK(handler != NULL);
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
    CHECK(!exists("page.png"));
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, text, ListSize));
    CHECK_INT(-1, xmlToImgGetObjectTagDictionary(handler, "canvas.width", text, ListSize));
    CHECK_INT(-1, xmlToImgGetObjectTagDictionaryUnicode(handler, wideOf("canvas.width"), UpToZero,
                                                        wide, ListSize));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "canvas.link", "1"));
    CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]));
    CHECK_INT(-1, settings[0]);
    CHECK_TEXT("before", text);
    CHECK_INT('b', wide[0]);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* The same for functions that read a parameter file. */
static void checkNoParameters(void* handler, const char* file) {
    char tags[ListSize];
    char values[ListSize];
    unsigned short wideTags[ListSize];
    unsigned short wideValues[ListSize];
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, file));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFileUnicode(handler, wideOf(file), UpToZero));
    CHECK_INT(-1,
              xmlToImgGetDictionaryFromParamFile(handler, file, tags, ListSize, values, ListSize));
    CHECK_TEXT("", tags);
    CHECK_TEXT("", values);
    CHECK_INT(-1, xmlToImgGetDictionaryFromParamFileUnicode(handler, wideOf(file), UpToZero,
                                                            wideTags, wideValues, ListSize));
}

static void checkRefused(const char* path) {
    startLibrary();
    captureOutput();
    void* handler = xmlToImgCreateHandler(writeLayout("good.xml", CANVAS_OF(50, 20)));
    checkNoDocument(path);
    checkNoParameters(handler, path);
    checkSilent();
    CHECK_INT(50, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_pipe_that_nobody_writes_is_no_document) {
    checkRefused(makePipe("pipe.xml"));
}

CASE(a_pipe_that_somebody_holds_open_is_no_document) {
    const char* path = makePipe("pipe.xml");
    const int both = open(path, O_RDWR);
    CHECK(both >= 0);
    CHECK(write(both, "<VelnorRoot>", 12) == 12);
    checkRefused(path);
    CHECK(close(both) == 0);
}

CASE(a_link_to_a_pipe_is_no_document) {
    makePipe("pipe");
    checkRefused(linkFile("link.xml", "pipe"));
}

CASE(an_endless_device_is_no_document) {
    checkRefused("/dev/zero");
}

CASE(a_link_to_an_endless_device_is_no_document) {
    checkRefused(linkFile("link.xml", "/dev/zero"));
}

CASE(an_empty_device_is_no_document) {
    checkRefused("/dev/null");
}

CASE(a_terminal_is_no_document) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
        checkRefused("/dev/tty");
        return;
    }
    checkRefused(textOf("%s", ptsname(terminal)));
    CHECK(close(terminal) == 0);
}

CASE(a_folder_is_no_document) {
    checkRefused(makeFolder("folder.xml"));
}

CASE(a_socket_is_no_document) {
    struct sockaddr_un address = {.sun_family = AF_UNIX};
    const char* path = pathOf("socket.xml");
    CHECK(strlen(path) < sizeof address.sun_path);
    strcpy(address.sun_path, path);
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    CHECK(server >= 0);
    CHECK(bind(server, (const struct sockaddr*)&address, sizeof address) == 0);
    CHECK(listen(server, 1) == 0);
    checkRefused(path);
    CHECK(close(server) == 0);
}

CASE(a_link_to_itself_is_no_document) {
    checkRefused(linkFile("loop.xml", "loop.xml"));
}

CASE(a_name_that_is_too_long_is_no_document) {
    checkRefused(pathOf(textOf("%0300d.xml", 0)));
}

CASE(a_file_without_an_end_in_sight_is_no_document) {
    const char* path = writeFile("sparse.xml", "<VelnorRoot>");
    CHECK(truncate(path, 1LL << 40) == 0);
    checkRefused(path);
}

CASE(a_file_of_the_system_that_states_no_size_is_read_or_refused) {
    checkRefused("/proc/self/status");
}
