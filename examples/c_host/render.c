/*
 * Renders one layout document into a picture: render LAYOUT OUTPUT [SETTING]...
 *
 * A SETTING is one of
 *
 *   name=value             what replaces %name% in the document: raw XML text, first value counts
 *   object.property=value  text of an element of the item "object": plain text, last value counts
 *   @object.link=value     the same; the element is found by its attribute link="link"
 *   --values=FILE          a UTF-8 file with one setting a line; blank lines and lines that begin
 *                          with # are skipped
 *
 * Exit status: 0 the picture was written, 1 it was not, 2 the arguments are wrong.
 *
 * Build against an installed library: cc -std=c11 render.c -lvelnorxmltoimg -lpthread -o render
 */
#define _POSIX_C_SOURCE 200809L

#include <velnorxmltoimg.h>

#include <errno.h>
#include <pthread.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

enum { RENDERED = 0, FAILED = 1, WRONG_USAGE = 2 };

static void* runQt(void* unused) {
    (void)unused;
    xmlToImgInitializeQtNoReturn(); /* stays in Qt's event loop for as long as the program runs */
    return NULL;
}

/* The library draws inside a Qt application. It lives on a thread of its own, since it does not
 * return. xmlToImgQtInitialized tells when it is there, but pauses for 10 ms first: a program that
 * makes one picture looks for itself. */
static bool startQt(void) {
    enum { TRIES = 50000 };
    const struct timespec pause = {.tv_sec = 0, .tv_nsec = 200L * 1000};
    pthread_t thread;
    if (pthread_create(&thread, NULL, runQt, NULL) != 0) {
        return false;
    }
    pthread_detach(thread);
    for (int tries = 0; tries < TRIES; ++tries) {
        if (__atomic_load_n(&VelnorQtStartedAsNonGuiApp, __ATOMIC_ACQUIRE) == 1) {
            return true;
        }
        nanosleep(&pause, NULL);
    }
    return false;
}

/* Hands one "name=value" to the handler. The text is cut in two at its first equals sign. */
static int setValue(void* handler, char* setting) {
    const bool isLink = setting[0] == '@';
    char* const name = isLink ? setting + 1 : setting;
    char* const equals = strchr(name, '=');
    if (equals == NULL || equals == name) {
        fprintf(stderr, "render: '%s' is not of the form name=value\n", setting);
        return WRONG_USAGE;
    }
    *equals = '\0';
    const char* const value = equals + 1;
    /* The setter for object tags takes a name without a point as that of a placeholder. */
    const int result = isLink ? xmlToImgSetObjectLinkDictionary(handler, name, value)
                              : xmlToImgSetObjectTagDictionary(handler, name, value);
    if (result != 0) {
        fprintf(stderr, "render: cannot set '%s': %s\n", setting,
                isLink ? "the document has no such link" : "the name has more than one point");
        return FAILED;
    }
    return RENDERED;
}

static int setValuesFromFile(void* handler, const char* path) {
    FILE* const file = fopen(path, "r");
    if (file == NULL) {
        fprintf(stderr, "render: cannot open '%s': %s\n", path, strerror(errno));
        return FAILED;
    }
    char* line = NULL;
    size_t capacity = 0;
    int status = RENDERED;
    while (status == RENDERED && getline(&line, &capacity, file) != -1) {
        line[strcspn(line, "\r\n")] = '\0';
        if (line[0] != '\0' && line[0] != '#') {
            status = setValue(handler, line);
        }
    }
    if (ferror(file)) {
        fprintf(stderr, "render: cannot read '%s'\n", path);
        status = FAILED;
    }
    free(line);
    fclose(file);
    return status;
}

static int setAllValues(void* handler, char** settings) {
    static const char valuesOption[] = "--values=";
    const size_t optionLength = sizeof valuesOption - 1;
    int status = RENDERED;
    for (; status == RENDERED && *settings != NULL; ++settings) {
        const bool isFile = strncmp(*settings, valuesOption, optionLength) == 0;
        status = isFile ? setValuesFromFile(handler, *settings + optionLength)
                        : setValue(handler, *settings);
    }
    return status;
}

/* The library answers 0 whether or not it wrote a picture, so only the file itself tells. A file
 * from an earlier run is removed first: it must not pass for the new one. */
static int writePicture(void* handler, const char* layout, const char* output) {
    if (unlink(output) != 0 && errno != ENOENT) {
        fprintf(stderr, "render: cannot replace '%s': %s\n", output, strerror(errno));
        return FAILED;
    }
    if (xmlToImgCreateImage(handler, output) != 0 || access(output, F_OK) != 0) {
        fprintf(stderr,
                "render: no picture was written to '%s': '%s' is missing or no layout document, "
                "or the output folder or suffix is not usable\n",
                output, layout);
        return FAILED;
    }
    return RENDERED;
}

int main(int argc, char** argv) {
    if (argc < 3) {
        fputs("usage: render LAYOUT OUTPUT [name=value | object.property=value | "
              "@object.link=value | --values=FILE]...\n",
              stderr);
        return WRONG_USAGE;
    }
    const char* const layout = argv[1];
    const char* const output = argv[2];
    if (!startQt()) {
        fputs("render: the Qt application did not start\n", stderr);
        return FAILED;
    }
    void* const handler = xmlToImgCreateHandler(layout);
    if (handler == NULL) {
        fputs("render: out of memory\n", stderr);
        return FAILED;
    }
    int status = setAllValues(handler, argv + 3);
    if (status == RENDERED) {
        status = writePicture(handler, layout, output);
    }
    xmlToImgFreeHandler(handler);
    return status;
}
