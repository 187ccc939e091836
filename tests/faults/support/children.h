/* What is better done by another process. */
#ifndef VELNOR_TESTS_CHILDREN_H
#define VELNOR_TESTS_CHILDREN_H

/* As render(), by a child of this process, which itself has then drawn nothing yet. */
void renderInChild(const char* document, const char* output);

#endif
