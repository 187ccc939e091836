// A Qt host with a message handler of its own.
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <QDebug>
#include <QString>

#include <atomic>
#include <cstdlib>
#include <thread>

#include <unistd.h>

namespace {

constexpr int Lives = 20;

std::atomic<int> ofHost{0};
std::atomic<int> ofOthers{0};
std::atomic<bool> callIsStuck{false};

void countMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    ++(message == QLatin1String("host") ? ofHost : ofOthers);
}

// Keeps the call that caused the message from ending.
void waitForEver(QtMsgType, const QMessageLogContext&, const QString&) {
    callIsStuck = true;
    for (;;) {
        sleepMilliseconds(1000);
    }
}

bool isInstalled() {
    const QtMessageHandler found = qInstallMessageHandler(countMessage);
    return found == countMessage;
}

} // namespace

CASE(a_message_handler_of_the_host_stays_and_hears_nothing) {
    qInstallMessageHandler(countMessage);
    unsetenv("XDG_RUNTIME_DIR");
    const pthread_t starter = startApplication();
    CHECK(isInstalled());
    drawDocument(TICKET, "first.png");
    CHECK(isInstalled());
    CHECK(endApplication(starter) == nullptr);
    CHECK(isInstalled());
    CHECK_INT(0, ofOthers);
}

CASE(no_message_of_the_host_is_lost_while_the_library_starts) {
    qInstallMessageHandler(countMessage);
    captureOutput();
    std::atomic<bool> enough{false};
    int sent = 0;
    std::thread talking([&] {
        for (; !enough; ++sent) {
            qWarning() << "host";
        }
    });
    for (int life = 0; life < Lives; ++life) {
        CHECK(endApplication(startApplication()) == nullptr);
    }
    enough = true;
    talking.join();
    checkSilent();
    CHECK_INT(sent, ofHost);
    CHECK_INT(0, ofOthers);
}

CASE(a_message_handler_that_the_host_installs_later_stays) {
    const pthread_t starter = startApplication();
    qInstallMessageHandler(countMessage);
    drawDocument(TICKET, "first.png");
    CHECK(isInstalled());
    CHECK(endApplication(starter) == nullptr);
    CHECK(isInstalled());
}

// However many calls there were: the handler that waits is registered again now and then.
CASE(exit_waits_ten_seconds_at_most_for_a_call_that_does_not_end) {
    constexpr unsigned Most = 25; // seconds
    startApplication();
    for (int call = 0; call < Lives; ++call) {
        drawDocument(TICKET, "whole.png");
    }
    drawDocument(TICKET, "cut.jpg");
    CHECK(truncate(pathOf("cut.jpg"), static_cast<off_t>(readFile("cut.jpg").size / 2)) == 0);
    writeLayout("page.xml", CANVAS_OF(200, 100) "<VelnorItem class='image'>"
                                                "<filepath>cut.jpg</filepath></VelnorItem>");
    qInstallMessageHandler(waitForEver);
    std::thread([] { render("page.xml", "page.png"); }).detach();
    while (!callIsStuck) {
        sleepMilliseconds(1);
    }
    alarm(Most);
    exit(EXIT_SUCCESS);
}
