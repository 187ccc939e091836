/* Texts in UTF-16, as the wide functions take them. */
#ifndef VELNOR_TESTS_WIDE_H
#define VELNOR_TESTS_WIDE_H

#ifdef __cplusplus
extern "C" {
#endif

enum { UpToZero = -1 };

/* A UTF-8 text in UTF-16, ended by a zero unit. */
const unsigned short* wideOf(const char* text);
/* The same, followed by more units than its length says. */
const unsigned short* wideWithTail(const char* text);
/* Code units before the zero. */
int wideLength(const unsigned short* text);

#ifdef __cplusplus
}
#endif

#endif
