#include "wide.h"

#include "files.h"
#include "harness.h"

#include <string.h>

static unsigned long nextCharacter(const unsigned char** text) {
    const unsigned char lead = *(*text)++;
    if (lead < 0x80) {
        return lead;
    }
    const int following = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : 1;
    unsigned long character = lead & (0x3fu >> following);
    for (int i = 0; i < following; ++i) {
        character = (character << 6) | (*(*text)++ & 0x3fu);
    }
    return character;
}

const unsigned short* wideOf(const char* text) {
    unsigned short* units = caseMemory((strlen(text) + 1) * sizeof *units);
    unsigned short* end = units;
    const unsigned char* rest = (const unsigned char*)text;
    while (*rest != 0) {
        const unsigned long character = nextCharacter(&rest);
        if (character >= 0x10000) {
            *end++ = (unsigned short)(0xd800 + ((character - 0x10000) >> 10));
            *end++ = (unsigned short)(0xdc00 + ((character - 0x10000) & 0x3ff));
        } else {
            *end++ = (unsigned short)character;
        }
    }
    *end = 0;
    return units;
}

const unsigned short* wideWithTail(const char* text) {
    return wideOf(textOf("%s-and-more", text));
}

int wideLength(const unsigned short* text) {
    int length = 0;
    while (text[length] != 0) {
        ++length;
    }
    return length;
}
