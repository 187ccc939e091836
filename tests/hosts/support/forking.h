/* Forks at any moment of a drawing. */
#ifndef VELNOR_TESTS_HOSTS_FORKING_H
#define VELNOR_TESTS_HOSTS_FORKING_H

/* Forks so many times while a thread draws tickets to the output. The child runs the function, with the number of
 * the fork, and must end there with exit code 0. */
void forkWhileDrawing(const char* output, int forks, void (*inChild)(int number));

#endif
