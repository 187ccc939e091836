/* A buffer between two strips of known bytes, itself filled with the same bytes. */
#ifndef VELNOR_TESTS_GUARDED_H
#define VELNOR_TESTS_GUARDED_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { GuardByte = 0xa5, GuardUnit = 0xa5a5 };

typedef struct Guarded {
    unsigned char* bytes; /* the buffer */
    size_t size;
} Guarded;

Guarded guardedBuffer(size_t size);

/* Checks that the strips and everything of the buffer from byte `used` on are as they were. */
void checkUntouchedFrom(Guarded buffer, size_t used);
/* Checks that the buffer holds the text, zero bytes up to byte `used`, and nothing new behind. A
 * text as long as `used` has no zero. */
void checkFilled(Guarded buffer, const char* text, size_t used);

#ifdef __cplusplus
}
#endif

#endif
