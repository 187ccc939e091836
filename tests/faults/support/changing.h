/* A thread that keeps changing files while the library reads them. */
#ifndef VELNOR_TESTS_CHANGING_H
#define VELNOR_TESTS_CHANGING_H

#include <stddef.h>

typedef struct Changer Changer;

/* Calls `change` with 0, 1, 2, ... on a thread of its own until stopChanging. */
Changer* startChanging(void (*change)(int step));
/* Returns once the thread has ended; tells how many changes were made. */
int stopChanging(Changer* changer);

/* Writes a file in place: it is cut to nothing first. This and the next take whole paths and may be
 * called from `change`. */
void rewriteFile(const char* path, const void* bytes, size_t size);
/* Puts a new file in the place of the old one at once, by way of "<path>.new". */
void exchangeFile(const char* path, const void* bytes, size_t size);

#endif
