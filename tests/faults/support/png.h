/* Whether a picture file is whole. */
#ifndef VELNOR_TESTS_PNG_H
#define VELNOR_TESTS_PNG_H

/* Checks that a PNG file holds all its chunks, each with the check sum that it carries, up to the
 * end mark, and nothing behind it. */
void checkWholePng(const char* name);

#endif
