#include "guarded.h"

#include "harness.h"

#include <string.h>

enum { StripSize = 64 };

Guarded guardedBuffer(size_t size) {
    unsigned char* whole = caseMemory(size + 2 * StripSize);
    memset(whole, GuardByte, size + 2 * StripSize);
    const Guarded buffer = {whole + StripSize, size};
    return buffer;
}

static void checkStrip(const unsigned char* from, const unsigned char* to, const char* where) {
    for (const unsigned char* byte = from; byte != to; ++byte) {
        if (*byte != GuardByte) {
            failCase(__FILE__, __LINE__, "a byte %s was written", where);
        }
    }
}

void checkUntouchedFrom(Guarded buffer, size_t used) {
    const unsigned char* end = buffer.bytes + buffer.size;
    checkStrip(buffer.bytes - StripSize, buffer.bytes, "before the buffer");
    checkStrip(buffer.bytes + used, end, "behind the part to be written");
    checkStrip(end, end + StripSize, "behind the buffer");
}

void checkFilled(Guarded buffer, const char* text, size_t used) {
    const size_t length = strlen(text);
    for (size_t at = 0; at < used; ++at) {
        const int expected = at < length ? (unsigned char)text[at] : 0;
        if (buffer.bytes[at] != expected) {
            failCase(__FILE__, __LINE__, "byte %zu of the buffer: expected %d, is %d", at, expected,
                     buffer.bytes[at]);
        }
    }
    checkUntouchedFrom(buffer, used);
}
