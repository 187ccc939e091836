#include "handler/font_lock.h"

#include "render/gui_application.h"

#include <QFont>

#include <atomic>

#include <pthread.h>

namespace {

// Not std::shared_mutex: threads that draw without a pause would never let a writer in.
pthread_rwlock_t fonts = PTHREAD_RWLOCK_WRITER_NONRECURSIVE_INITIALIZER_NP;

std::atomic<unsigned> changes{0};
thread_local unsigned seenChanges = 0;

// A cached font may be one that was removed, or the substitute for one that is there by now.
void dropOutdatedFonts() {
    const unsigned current = changes;
    if (seenChanges != current && velnor::guiApplicationExists()) {
        QFont::cleanup();
        seenChanges = current;
    }
}

} // namespace

velnor::FontReadLock::FontReadLock() : held(pthread_rwlock_rdlock(&fonts) == 0) {
    dropOutdatedFonts();
}

velnor::FontReadLock::~FontReadLock() {
    if (held) {
        pthread_rwlock_unlock(&fonts);
    }
}

velnor::FontWriteLock::FontWriteLock() {
    pthread_rwlock_wrlock(&fonts);
}

velnor::FontWriteLock::~FontWriteLock() {
    ++changes;
    try {
        dropOutdatedFonts();
    } catch (...) { // without memory the next call tries again
    }
    pthread_rwlock_unlock(&fonts);
}
