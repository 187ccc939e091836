/* File systems of a case's own, which nobody else sees and which end with it, and users without
 * the rights of the superuser. Call these before the library is started. Where the machine does
 * not allow them, the case is skipped. */
#ifndef VELNOR_TESTS_DISKS_H
#define VELNOR_TESTS_DISKS_H

/* Mounts an empty disk at a new folder; `options` as for tmpfs, such as "size=64k". */
const char* mountDisk(const char* name, const char* options);
/* A disk that can be read, beside which the folder under `name` can still be written: returns the
 * path of a folder that shows the contents of `name` and refuses every change. */
const char* readOnlyView(const char* name);
/* Fills the rest of a disk with the file "filling" in that folder. */
void fillDisk(const char* folder);

/* The rights of a file's mode count from here on, also where tests run as the superuser. */
void becomeOrdinaryUser(void);

#endif
