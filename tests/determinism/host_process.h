// The host program, run in a process of its own with an environment of its own.
#ifndef VELNOR_TESTS_HOST_PROCESS_H
#define VELNOR_TESTS_HOST_PROCESS_H

#include "cases.h"
#include "support/scratch_folder.h"

#include <QByteArray>
#include <QMap>
#include <QProcessEnvironment>

#include <vector>

class HostProcess {
public:
    // The environment of this process, in the C locale, with folders that nobody else uses.
    HostProcess();

    // Applies to the runs that follow.
    void setVariable(const char* name, const QString& value);

    // Draws the cases one after the other in one process. A case may come more than once.
    std::vector<QByteArray> draw(const std::vector<Case>& cases);
    // Draws the lists at the same time, each on its own thread of one process.
    std::vector<std::vector<QByteArray>>
    drawAtTheSameTime(const std::vector<std::vector<Case>>& lists);

    // The name of the locale that the last run had; empty when its environment asked for an unknown
    // one.
    QByteArray locale() const { return usedLocale; }

private:
    QString writeOrder(const std::vector<Case>& cases, int thread) const;
    void run(const QStringList& orders);
    std::vector<QByteArray> takeFiles(const std::vector<Case>& cases, int thread) const;
    QString outputPath(const Case& drawn, int thread, int place) const;

    ScratchFolder folder;
    QProcessEnvironment environment;
    QByteArray usedLocale;
};

#endif
