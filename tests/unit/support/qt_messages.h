// Listens to Qt's messages: the library is silent, whatever it is given.
#ifndef VELNOR_TESTS_QT_MESSAGES_H
#define VELNOR_TESTS_QT_MESSAGES_H

#include <QtGlobal>

#include <string>

// Takes the place of Qt's message output for its lifetime. One at a time.
class QtMessages {
public:
    QtMessages();
    ~QtMessages();
    QtMessages(const QtMessages&) = delete;
    QtMessages& operator=(const QtMessages&) = delete;

    // What Qt said since this listener was made; empty when it was silent.
    std::string heard() const;

private:
    QtMessageHandler previous;
};

#endif
