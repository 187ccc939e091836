#include "fonts.h"

#include "files.h"
#include "harness.h"
#include "wide.h"

#include <stdio.h>
#include <string.h>

enum { BrandLength = 10, WideBrandSize = 2 * BrandLength };

/* The name table holds UTF-16 in big-endian order beside one-byte text. */
static void bigEndianOf(const unsigned short* units, unsigned char* bytes) {
    for (int i = 0; i < BrandLength; ++i) {
        bytes[2 * i] = (unsigned char)(units[i] >> 8);
        bytes[2 * i + 1] = (unsigned char)(units[i] & 0xff);
    }
}

static void replaceAll(Content file, const void* known, const void* fresh, size_t size) {
    unsigned char* at = file.bytes;
    size_t rest = file.size;
    while ((at = memmem(at, rest, known, size)) != NULL) {
        memcpy(at, fresh, size);
        at += size;
        rest = file.size - (size_t)(at - file.bytes);
    }
}

const char* writeFont(const char* name, const char* original, const char* brand) {
    const char bundled[] = "Liberation";
    unsigned char known[WideBrandSize];
    unsigned char fresh[WideBrandSize];
    CHECK_INT(BrandLength, wideLength(wideOf(brand)));
    bigEndianOf(wideOf(bundled), known);
    bigEndianOf(wideOf(brand), fresh);

    const Content font = readFile(original);
    replaceAll(font, known, fresh, sizeof known);
    if (strlen(brand) == BrandLength) {
        replaceAll(font, bundled, brand, BrandLength);
    }
    const char* path = pathOf(name);
    FILE* file = fopen(path, "wb");
    CHECK(file != NULL && fwrite(font.bytes, 1, font.size, file) == font.size);
    CHECK(fclose(file) == 0);
    return path;
}
