#include "api/event_dispatcher.h"

#include "files/descriptors.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QThread>

#include <algorithm>
#include <array>
#include <iterator>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

constexpr int Forever = -1;
// Without a wake-up file (the process has run out of them) the loop looks around now and then.
constexpr int BlindPollInterval = 50; // milliseconds

short pollEventsOf(QSocketNotifier::Type type) {
    switch (type) {
    case QSocketNotifier::Read:
        return POLLIN;
    case QSocketNotifier::Write:
        return POLLOUT;
    default:
        return POLLPRI;
    }
}

int earlier(int left, int right) {
    if (left == Forever) {
        return right;
    }
    return right == Forever ? left : std::min(left, right);
}

// The start of Qt 5.15's private data of a thread. detachFromThread() checks what it finds there.
struct ThreadData {
    std::array<int, 3> counts;
    void* eventLoops;
    void* postedEvents;
    std::array<int, 3> postedEventPositions;
    void* postedEventLock;
    QThread* thread;
    void* systemThread;
    QAbstractEventDispatcher* dispatcher;
};

static_assert(QT_VERSION >= QT_VERSION_CHECK(5, 15, 0) && QT_VERSION < QT_VERSION_CHECK(6, 0, 0),
              "another Qt keeps the dispatcher of a thread elsewhere");

// Of the thread that an object lives on: the second pointer after the object's public data.
ThreadData* threadDataOf(const QObjectData* object) {
    const char* const privatePart = reinterpret_cast<const char*>(object) + sizeof(QObjectData);
    return *reinterpret_cast<ThreadData* const*>(privatePart + sizeof(void*));
}

// Tells whether there was one.
template <typename Element, typename Condition>
bool removeAll(std::vector<Element>& elements, Condition condition) {
    const auto end = std::remove_if(elements.begin(), elements.end(), condition);
    const bool found = end != elements.end();
    elements.erase(end, elements.end());
    return found;
}

} // namespace

namespace velnor {

EventDispatcher::EventDispatcher(QObject* parent)
    : QAbstractEventDispatcher(parent),
      wakeUpFile(awayFromStandardStreams(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))) {}

EventDispatcher::~EventDispatcher() {
    if (wakeUpFile >= 0) {
        close(wakeUpFile);
    }
}

bool EventDispatcher::processEvents(QEventLoop::ProcessEventsFlags flags) {
    interrupted = false;
    Q_EMIT awake();
    QCoreApplication::sendPostedEvents();

    const bool mayBlock = flags.testFlag(QEventLoop::WaitForMoreEvents) && !interrupted;
    const bool timersCount = !flags.testFlag(QEventLoop::X11ExcludeTimers);
    if (mayBlock) {
        Q_EMIT aboutToBlock();
    }
    std::vector<Registration> polled;
    if (!flags.testFlag(QEventLoop::ExcludeSocketNotifiers)) {
        polled = notifiers;
    }
    std::vector<pollfd> files;
    files.reserve(polled.size() + 1);
    for (const Registration& each : polled) {
        files.push_back(
            {static_cast<int>(each.notifier->socket()), pollEventsOf(each.notifier->type()), 0});
    }
    bool worked = waitForWork(mayBlock, timersCount, files);
    worked = activateNotifiers(polled, files) || worked;
    if (timersCount) {
        worked = activateTimers() || worked;
    }
    return worked;
}

// Tells whether the wake-up file was the reason to go on: an event was posted.
bool EventDispatcher::waitForWork(bool mayBlock, bool timersCount, std::vector<pollfd>& files) {
    int timeout = mayBlock ? Forever : 0;
    if (timersCount) {
        timeout = earlier(timeout, timeUntilNextTimer());
    }
    if (wakeUpFile < 0) {
        timeout = earlier(timeout, BlindPollInterval);
    }
    files.push_back({wakeUpFile, POLLIN, 0});
    poll(files.data(), files.size(), timeout);
    const bool woken = files.back().revents != 0;
    files.pop_back();
    if (woken) {
        clearWakeUp();
    }
    return woken;
}

void EventDispatcher::clearWakeUp() const {
    std::uint64_t count = 0;
    while (read(wakeUpFile, &count, sizeof count) > 0) {
    }
}

bool EventDispatcher::hasPendingEvents() {
    pollfd woken{wakeUpFile, POLLIN, 0};
    return poll(&woken, 1, 0) > 0 || timeUntilNextTimer() == 0;
}

void EventDispatcher::registerSocketNotifier(QSocketNotifier* notifier) {
    notifiers.push_back({notifier, ++lastNumber});
}

void EventDispatcher::unregisterSocketNotifier(QSocketNotifier* notifier) {
    removeAll(notifiers,
              [notifier](const Registration& each) { return each.notifier == notifier; });
}

bool EventDispatcher::isRegistered(const Registration& registration) const {
    return std::any_of(notifiers.begin(), notifiers.end(), [&](const Registration& each) {
        return each.number == registration.number;
    });
}

bool EventDispatcher::activateNotifiers(const std::vector<Registration>& polled,
                                        const std::vector<pollfd>& files) {
    bool activated = false;
    for (size_t i = 0; i < polled.size(); ++i) {
        // An earlier one may have unregistered it.
        if (files[i].revents == 0 || !isRegistered(polled[i])) {
            continue;
        }
        if ((files[i].revents & POLLNVAL) != 0) {
            // Its file is closed: it would be reported again at once, for ever.
            polled[i].notifier->setEnabled(false);
        } else {
            QEvent event(QEvent::SockAct);
            QCoreApplication::sendEvent(polled[i].notifier, &event);
            activated = true;
        }
    }
    return activated;
}

EventDispatcher::TimePoint EventDispatcher::currentTime() const {
    return std::chrono::steady_clock::now();
}

void EventDispatcher::attachToThread() {
    // Objects that were destroyed meanwhile could not unregister their timers.
    unregisterTimers(nullptr);
    QThread::currentThread()->setEventDispatcher(this);
}

// Qt has no function for this. Without it, a QGuiApplication that the host makes on the thread
// later would use this dispatcher instead of the platform's, and only that delivers window events.
bool EventDispatcher::detachFromThread() {
    ThreadData* const data = threadDataOf(d_ptr.data());
    if (data->thread != QThread::currentThread() || data->dispatcher != this) {
        return false;
    }
    // Other threads read it when they post an event.
    __atomic_store_n(&data->dispatcher, nullptr, __ATOMIC_RELEASE);
    return true;
}

void EventDispatcher::registerTimer(int timerId, int interval, Qt::TimerType type,
                                    QObject* object) {
    const std::chrono::milliseconds period(interval);
    timers.push_back({timerId, period, type, object, currentTime() + period});
}

bool EventDispatcher::unregisterTimer(int timerId) {
    return removeAll(timers, [timerId](const Timer& timer) { return timer.id == timerId; });
}

bool EventDispatcher::unregisterTimers(QObject* object) {
    // The pointer is null already where its object is being destroyed.
    return removeAll(timers, [object](const Timer& timer) {
        return timer.object.isNull() || timer.object == object;
    });
}

QList<QAbstractEventDispatcher::TimerInfo>
EventDispatcher::registeredTimers(QObject* object) const {
    QList<TimerInfo> found;
    for (const Timer& timer : timers) {
        if (timer.object == object) {
            found.append(TimerInfo(timer.id, static_cast<int>(timer.interval.count()), timer.type));
        }
    }
    return found;
}

int EventDispatcher::remainingTime(int timerId) {
    const Timer* timer = findTimer(timerId);
    return timer != nullptr ? remainingTime(*timer) : -1;
}

int EventDispatcher::remainingTime(const Timer& timer) const {
    // Rounded up: poll would return too early.
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(timer.due - currentTime());
    return std::max(static_cast<int>(left.count()), 0);
}

EventDispatcher::Timer* EventDispatcher::findTimer(int timerId) {
    const auto found = std::find_if(timers.begin(), timers.end(),
                                    [timerId](const Timer& timer) { return timer.id == timerId; });
    return found == timers.end() ? nullptr : &*found;
}

int EventDispatcher::timeUntilNextTimer() const {
    int next = Forever;
    for (const Timer& timer : timers) {
        // A handler that runs events of its own is not called again meanwhile.
        next = timer.isFiring ? next : earlier(next, remainingTime(timer));
    }
    return next;
}

// In the order in which they became due.
std::vector<int> EventDispatcher::dueTimers() const {
    const TimePoint now = currentTime();
    std::vector<Timer> due;
    std::copy_if(timers.begin(), timers.end(), std::back_inserter(due),
                 [now](const Timer& timer) { return !timer.isFiring && timer.due <= now; });
    std::stable_sort(due.begin(), due.end(),
                     [](const Timer& left, const Timer& right) { return left.due < right.due; });
    std::vector<int> ids;
    std::transform(due.begin(), due.end(), std::back_inserter(ids),
                   [](const Timer& timer) { return timer.id; });
    return ids;
}

void EventDispatcher::activateTimer(int timerId) {
    const TimePoint now = currentTime();
    Timer* timer = findTimer(timerId);
    // Those before it may have stopped it, or have run it in a loop of their own.
    if (timer == nullptr || timer->object.isNull() || timer->isFiring || timer->due > now) {
        return;
    }
    timer->due += timer->interval;
    if (timer->due < now) {
        // Periods that were missed are not made up for.
        timer->due = now + timer->interval;
    }
    timer->isFiring = true;
    QTimerEvent event(timerId);
    QCoreApplication::sendEvent(timer->object, &event);
    // It may have stopped itself.
    if (Timer* fired = findTimer(timerId)) {
        fired->isFiring = false;
    }
}

bool EventDispatcher::activateTimers() {
    const std::vector<int> due = dueTimers();
    for (const int id : due) {
        activateTimer(id);
    }
    return !due.empty();
}

void EventDispatcher::wakeUp() {
    const std::uint64_t one = 1;
    // Fails only when a wake-up is pending already.
    [[maybe_unused]] const ssize_t written = write(wakeUpFile, &one, sizeof one);
}

void EventDispatcher::interrupt() {
    interrupted = true;
    wakeUp();
}

void EventDispatcher::flush() {}

} // namespace velnor
