#include "support/disks.h"

#include "support/files.h"
#include "support/harness.h"
#include "support/skipping.h"

#include <errno.h>
#include <fcntl.h>
#include <grp.h>
#include <sched.h>
#include <stdio.h>
#include <string.h>
#include <sys/mount.h>
#include <unistd.h>

enum { Nobody = 65534, FillingBlock = 4096 };

static void writeProcessFile(const char* path, const char* text) {
    const int file = open(path, O_WRONLY);
    if (file < 0 || write(file, text, strlen(text)) < 0) {
        skipCase("no %s: %s", path, strerror(errno));
    }
    close(file);
}

/* Once for a process. Its user stays the owner of the scratch folder. */
static void leaveMounts(void) {
    static int left;
    if (left) {
        return;
    }
    const char* users = textOf("%d %d 1", (int)geteuid(), (int)geteuid());
    const char* groups = textOf("%d %d 1", (int)getegid(), (int)getegid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        skipCase("no name space of mounts: %s", strerror(errno));
    }
    writeProcessFile("/proc/self/setgroups", "deny");
    writeProcessFile("/proc/self/uid_map", users);
    writeProcessFile("/proc/self/gid_map", groups);
    left = 1;
}

const char* mountDisk(const char* name, const char* options) {
    leaveMounts();
    const char* path = makeFolder(name);
    if (mount("disk", path, "tmpfs", 0, options) != 0) {
        skipCase("no disk of its own: %s", strerror(errno));
    }
    return path;
}

const char* readOnlyView(const char* name) {
    leaveMounts();
    const char* path = makeFolder(textOf("%s-read-only", name));
    if (mount(pathOf(name), path, NULL, MS_BIND, NULL) != 0 ||
        mount(NULL, path, NULL, MS_BIND | MS_REMOUNT | MS_RDONLY, NULL) != 0) {
        skipCase("no read-only disk: %s", strerror(errno));
    }
    return path;
}

void fillDisk(const char* folder) {
    static const char block[FillingBlock];
    const int file = open(pathOf(textOf("%s/filling", folder)), O_WRONLY | O_CREAT, 0666);
    CHECK(file >= 0);
    while (write(file, block, sizeof block) > 0) {
    }
    CHECK_INT(ENOSPC, errno);
    close(file);
}

void becomeOrdinaryUser(void) {
    if (geteuid() != 0) {
        return;
    }
    if (chown(scratchFolder(), Nobody, Nobody) != 0 || setgroups(0, NULL) != 0 ||
        setgid(Nobody) != 0 || setuid(Nobody) != 0) {
        skipCase("no ordinary user: %s", strerror(errno));
    }
}
