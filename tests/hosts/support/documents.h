/* Layout documents of the repository, and drawing them as a host does. */
#ifndef VELNOR_TESTS_HOSTS_DOCUMENTS_H
#define VELNOR_TESTS_HOSTS_DOCUMENTS_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct Documents {
    const char** paths;
    size_t count;
} Documents;

/* A ticket with texts, shapes, pictures and barcodes, and fonts of its own beside it. */
#define TICKET VELNOR_EXAMPLE_LAYOUTS "/parking_ticket.xml"

/* At least one; the pattern is one of glob(7) below the folder of golden cases. */
Documents goldenDocuments(const char* pattern);
Documents exampleDocuments(void);

/* A handler of one of those documents, with the pictures and fonts that it needs. */
void* handlerOf(const char* document);

/* Draws with a handler of its own and returns the path of the output, which is in the scratch
 * folder and was removed before. */
const char* drawDocument(const char* document, const char* output);

/* Checks that the document now makes this file, byte for byte. */
void checkDraws(const char* document, const char* expected);

#ifdef __cplusplus
}
#endif

#endif
