// An event dispatcher over poll(2), for threads that have none: that of the library's application,
// and those of hosts during a call.
//
// Why not Qt's: on Linux Qt chooses its GLib dispatcher, which takes the default main context of a
// GLib host unless QT_NO_GLIB is set in the environment of the whole process. QEventDispatcherUNIX
// is private API; its headers and symbols belong to one build of Qt.
#ifndef VELNOR_API_EVENT_DISPATCHER_H
#define VELNOR_API_EVENT_DISPATCHER_H

#include <QAbstractEventDispatcher>
#include <QPointer>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <vector>

struct pollfd;

namespace velnor {

class EventDispatcher : public QAbstractEventDispatcher {
public:
    explicit EventDispatcher(QObject* parent = nullptr);
    ~EventDispatcher() override;
    EventDispatcher(const EventDispatcher&) = delete;
    EventDispatcher& operator=(const EventDispatcher&) = delete;

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    bool hasPendingEvents() override;

    void registerSocketNotifier(QSocketNotifier* notifier) override;
    void unregisterSocketNotifier(QSocketNotifier* notifier) override;

    void registerTimer(int timerId, int interval, Qt::TimerType type, QObject* object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject* object) override;
    QList<TimerInfo> registeredTimers(QObject* object) const override;
    int remainingTime(int timerId) override;

    void wakeUp() override;    // from any thread
    void interrupt() override; // from any thread
    void flush() override;

    // Sends the events of the timers that are due, and nothing else.
    bool activateTimers();

    // Makes it the dispatcher of the current thread, which has none.
    void attachToThread();
    // Leaves the current thread without a dispatcher again, and keeps the timers. Returns false and
    // stays attached if Qt's data of the thread does not have the expected layout.
    bool detachFromThread();

protected:
    using TimePoint = std::chrono::steady_clock::time_point;

    virtual TimePoint currentTime() const;

private:
    struct Timer {
        int id;
        std::chrono::milliseconds interval;
        Qt::TimerType type;
        QPointer<QObject> object;
        TimePoint due;
        bool isFiring = false;
    };

    // The number tells a notifier from a later one at the same address.
    struct Registration {
        QSocketNotifier* notifier;
        std::uint64_t number;
    };

    bool waitForWork(bool mayBlock, bool timersCount, std::vector<pollfd>& files);
    void clearWakeUp() const;
    bool activateNotifiers(const std::vector<Registration>& polled,
                           const std::vector<pollfd>& files);
    bool isRegistered(const Registration& registration) const;
    int timeUntilNextTimer() const;
    int remainingTime(const Timer& timer) const;
    std::vector<int> dueTimers() const;
    void activateTimer(int timerId);
    Timer* findTimer(int timerId);

    int wakeUpFile;
    std::atomic<bool> interrupted{false};
    std::vector<Registration> notifiers;
    std::uint64_t lastNumber = 0;
    std::vector<Timer> timers;
};

} // namespace velnor

#endif
