#include "support/qt_symbols.h"

#include "support/harness.h"

#include <dlfcn.h>
#include <string.h>

/* QTimer::singleShot(int, const QObject*, const char*): posts an event when the time is 0, and so
 * reaches an event loop that has not begun yet; QCoreApplication::quit would be lost there. */
typedef void (*SingleShot)(int milliseconds, const void* receiver, const char* slot);

static const char SlotQuit[] = "1quit()";

static void* symbolOf(void* loaded, const char* name) {
    void* symbol = dlsym(loaded, name);
    if (symbol == NULL) {
        failCase(__FILE__, __LINE__, "no symbol %s", name);
    }
    return symbol;
}

void quitApplicationOf(void* loaded) {
    void* symbol = symbolOf(loaded, "_ZN6QTimer10singleShotEiPK7QObjectPKc");
    void* const* application = symbolOf(loaded, "_ZN16QCoreApplication4selfE");
    SingleShot singleShot = NULL;
    memcpy(&singleShot, &symbol, sizeof singleShot);
    CHECK(*application != NULL);
    singleShot(0, *application, SlotQuit);
}

void quitApplication(void) {
    quitApplicationOf(RTLD_DEFAULT);
}
