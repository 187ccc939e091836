// Keeps the fonts of the process as they are while calls use them.
#ifndef VELNOR_HANDLER_FONT_LOCK_H
#define VELNOR_HANDLER_FONT_LOCK_H

namespace velnor {

// While this lives, the library registers and removes no fonts. Any number of threads hold it at
// once; a thread holds it once at most. Qt caches fonts per thread, under names that it reuses: a
// thread that has not seen the last change begins with an empty cache.
class FontReadLock {
public:
    FontReadLock();
    ~FontReadLock();
    FontReadLock(const FontReadLock&) = delete;
    FontReadLock& operator=(const FontReadLock&) = delete;

private:
    bool held; // false where the thread is changing the fonts, as in a slot that a change calls
};

// Registers or removes fonts while this lives: waits for the calls that use fonts, and they for it.
class FontWriteLock {
public:
    FontWriteLock();
    ~FontWriteLock();
    FontWriteLock(const FontWriteLock&) = delete;
    FontWriteLock& operator=(const FontWriteLock&) = delete;
};

} // namespace velnor

#endif
