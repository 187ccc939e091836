#include "support/png.h"

#include "support/files.h"
#include "support/harness.h"

#include <stdint.h>
#include <string.h>

enum { SignatureSize = 8, ChunkFrame = 12 };

static uint32_t numberAt(const unsigned char* bytes) {
    return (uint32_t)bytes[0] << 24 | (uint32_t)bytes[1] << 16 | (uint32_t)bytes[2] << 8 | bytes[3];
}

static uint32_t checkSum(const unsigned char* bytes, size_t size) {
    uint32_t sum = UINT32_MAX;
    for (size_t at = 0; at < size; ++at) {
        sum ^= bytes[at];
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1) ^ (sum & 1 ? 0xedb88320U : 0);
        }
    }
    return ~sum;
}

/* The place behind a chunk; 0 where it is not whole. */
static size_t chunkEnd(Content file, size_t at) {
    const size_t left = file.size - at;
    if (left < ChunkFrame || numberAt(file.bytes + at) > left - ChunkFrame) {
        return 0;
    }
    const size_t size = numberAt(file.bytes + at);
    const unsigned char* named = file.bytes + at + 4;
    return numberAt(named + 4 + size) == checkSum(named, 4 + size) ? at + ChunkFrame + size : 0;
}

void checkWholePng(const char* name) {
    const Content file = readFile(name);
    CHECK(file.size > SignatureSize && memcmp(file.bytes, "\x89PNG\r\n\x1a\n", SignatureSize) == 0);
    size_t at = SignatureSize;
    const unsigned char* last = NULL;
    while (at < file.size) {
        last = file.bytes + at + 4;
        at = chunkEnd(file, at);
        if (at == 0) {
            failCase(__FILE__, __LINE__, "%s is not whole: %zu bytes", name, file.size);
        }
    }
    CHECK(last != NULL && memcmp(last, "IEND", 4) == 0);
}
