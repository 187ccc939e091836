#include "files.h"

#include "harness.h"

#include <ftw.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

enum { MostOpenFolders = 16, MostListed = 256 };

static const char* listed[MostListed];
static size_t listedCount;
static size_t listedPrefix;

const char* textOf(const char* format, ...) {
    va_list values;
    va_start(values, format);
    const int length = vsnprintf(NULL, 0, format, values);
    va_end(values);
    char* text = caseMemory((size_t)length + 1);
    va_start(values, format);
    vsnprintf(text, (size_t)length + 1, format, values);
    va_end(values);
    return text;
}

const char* pathOf(const char* name) {
    return name[0] == '/' ? name : textOf("%s/%s", scratchFolder(), name);
}

const char* makeFolder(const char* name) {
    const char* path = pathOf(name);
    if (mkdir(path, 0777) != 0) {
        failCase(__FILE__, __LINE__, "cannot make folder %s", path);
    }
    return path;
}

const char* writeFile(const char* name, const char* text) {
    const char* path = pathOf(name);
    FILE* file = fopen(path, "wb");
    if (file == NULL || fputs(text, file) < 0 || fclose(file) != 0) {
        failCase(__FILE__, __LINE__, "cannot write %s", path);
    }
    return path;
}

const char* linkFile(const char* name, const char* target) {
    const char* path = pathOf(name);
    if (symlink(target, path) != 0) {
        failCase(__FILE__, __LINE__, "cannot link %s", path);
    }
    return path;
}

Content readFile(const char* name) {
    const char* path = pathOf(name);
    FILE* file = fopen(path, "rb");
    struct stat about;
    if (file == NULL || fstat(fileno(file), &about) != 0) {
        failCase(__FILE__, __LINE__, "cannot read %s", path);
    }
    Content content = {caseMemory((size_t)about.st_size + 1), (size_t)about.st_size};
    CHECK(fread(content.bytes, 1, content.size, file) == content.size);
    fclose(file);
    return content;
}

int exists(const char* name) {
    struct stat about;
    return lstat(pathOf(name), &about) == 0;
}

int sameContent(const char* first, const char* second) {
    const Content one = readFile(first);
    const Content other = readFile(second);
    return one.size == other.size && memcmp(one.bytes, other.bytes, one.size) == 0;
}

static int listEntry(const char* path, const struct stat* about, int kind, struct FTW* place) {
    (void)about;
    (void)kind;
    if (place->level > 0) {
        CHECK(listedCount < MostListed);
        listed[listedCount++] = textOf("%s\n", path + listedPrefix);
    }
    return 0;
}

static int compareTexts(const void* first, const void* second) {
    return strcmp(*(const char* const*)first, *(const char* const*)second);
}

const char* listTree(const char* name) {
    const char* path = pathOf(name);
    listedCount = 0;
    listedPrefix = strlen(path) + 1;
    CHECK(nftw(path, listEntry, MostOpenFolders, FTW_PHYS) == 0);
    qsort(listed, listedCount, sizeof *listed, compareTexts);
    const char* text = "";
    for (size_t i = 0; i < listedCount; ++i) {
        text = textOf("%s%s", text, listed[i]);
    }
    return text;
}

static int removeEntry(const char* path, const struct stat* about, int kind, struct FTW* place) {
    (void)about;
    (void)kind;
    (void)place;
    return remove(path);
}

void removeTree(const char* path) {
    nftw(path, removeEntry, MostOpenFolders, FTW_DEPTH | FTW_PHYS);
}

static int bigEndian(const unsigned char* bytes) {
    return (bytes[0] << 24) | (bytes[1] << 16) | (bytes[2] << 8) | bytes[3];
}

/* The value of four bytes at `offset` in the chunk of that name. */
static int pngNumber(const char* name, const char* chunkName, size_t offset) {
    const size_t signatureSize = 8;
    const Content file = readFile(name);
    CHECK(file.size > signatureSize && memcmp(file.bytes, "\x89PNG\r\n\x1a\n", 8) == 0);
    size_t at = signatureSize;
    while (at + 12 <= file.size) {
        const unsigned char* chunk = file.bytes + at;
        if (memcmp(chunk + 4, chunkName, 4) == 0) {
            return bigEndian(chunk + 8 + offset);
        }
        at += 12 + (size_t)bigEndian(chunk);
    }
    failCase(__FILE__, __LINE__, "no %s in %s", chunkName, name);
}

int pngWidth(const char* name) {
    return pngNumber(name, "IHDR", 0);
}

int pngHeight(const char* name) {
    return pngNumber(name, "IHDR", 4);
}

int pngDotsPerMetre(const char* name) {
    return pngNumber(name, "pHYs", 0);
}
