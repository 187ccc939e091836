/* Files of a case. Names without a leading "/" lie in the scratch folder; texts that are returned
 * live until the process ends. */
#ifndef VELNOR_TESTS_FILES_H
#define VELNOR_TESTS_FILES_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct Content {
    unsigned char* bytes;
    size_t size;
} Content;

__attribute__((format(printf, 1, 2))) const char* textOf(const char* format, ...);

const char* pathOf(const char* name);
const char* makeFolder(const char* name);
const char* writeFile(const char* name, const char* text);
const char* linkFile(const char* name, const char* target);
Content readFile(const char* name);
int exists(const char* name);
int sameContent(const char* first, const char* second);

/* The names of everything below a folder, sorted, one a line; empty for an empty folder. */
const char* listTree(const char* name);
void removeTree(const char* path);

/* What the header of a PNG file says; checks that it is one. */
int pngWidth(const char* name);
int pngHeight(const char* name);
int pngDotsPerMetre(const char* name);

#ifdef __cplusplus
}
#endif

#endif
