/* A process without descriptors. */
#ifndef VELNOR_TESTS_DESCRIPTORS_H
#define VELNOR_TESTS_DESCRIPTORS_H

/* From here on the process can open `free` more files. Lifted by allowDescriptors. */
void leaveDescriptors(int free);
void allowDescriptors(void);

#endif
