// A program of its own: these tests begin without any Qt application.
#include "api/host_thread.h"

#include "api/event_dispatcher.h"
#include "support/qt_messages.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <array>
#include <thread>

using velnor::HostThread;

namespace {

bool hasOwnDispatcher() {
    return dynamic_cast<velnor::EventDispatcher*>(QAbstractEventDispatcher::instance()) != nullptr;
}

// The arguments of an application without a screen; Qt keeps references to them.
class Arguments {
public:
    int& count() { return number; }
    char** values() { return pointers.data(); }

private:
    char program[5] = "unit";
    char option[10] = "-platform";
    char platform[10] = "offscreen";
    std::array<char*, 4> pointers = {program, option, platform, nullptr};
    int number = 3;
};

TEST(WithoutAnApplication, AHostThreadStaysAsItWas) {
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    std::thread([] {
        const HostThread thread;
        EXPECT_EQ(QAbstractEventDispatcher::instance(), nullptr);
    }).join();
}

TEST(WithoutAnApplication, AHostMayMakeItsOwnLater) {
    { const HostThread thread; }
    Arguments arguments;
    const QGuiApplication application(arguments.count(), arguments.values());
    const HostThread thread;
    EXPECT_NE(QAbstractEventDispatcher::instance(), nullptr);
    EXPECT_FALSE(hasOwnDispatcher());
}

TEST(WithoutAnApplication, AThreadIsGivenADispatcherOnce) {
    const QtMessages messages;
    std::thread([] {
        velnor::ensureThreadHasDispatcher();
        EXPECT_TRUE(hasOwnDispatcher());
        const QAbstractEventDispatcher* const given = QAbstractEventDispatcher::instance();
        velnor::ensureThreadHasDispatcher();
        EXPECT_EQ(QAbstractEventDispatcher::instance(), given);
    }).join();
    EXPECT_EQ(messages.heard(), "");
}

} // namespace
