/* Named pipes as outputs and inputs. */
#ifndef VELNOR_TESTS_PIPES_H
#define VELNOR_TESTS_PIPES_H

#include <stddef.h>

const char* makePipe(const char* name);

typedef struct PipeReader PipeReader;

/* Starts a thread that opens the pipe, reads up to `most` bytes into the file `copy`, and closes
 * the pipe. */
PipeReader* readPipe(const char* name, const char* copy, size_t most);
/* Returns once that thread has ended. */
void finishReading(PipeReader* reader);

#endif
