// A tree of golden cases of its own, in a scratch folder.
#ifndef VELNOR_GOLDEN_TEST_SUPPORT_H
#define VELNOR_GOLDEN_TEST_SUPPORT_H

#include "golden_case.h"
#include "isolation.h"
#include "runs.h"

#include <QImage>
#include <gtest/gtest.h>

namespace golden {

class GoldenTree : public testing::Test {
protected:
    GoldenTree();

    // Makes the document cases/shapes/<name>.xml: an empty canvas of 30 x 20 dots.
    GoldenCase makeCase(const QString& name);
    GoldenCase makeAcceptedCase(const QString& name);
    void write(const QString& name, const QByteArray& content);
    QByteArray read(const QString& path) const;
    static void changePicture(const GoldenCase& golden, void (*change)(QImage&));

    // Both keep in `printed` what the last of them printed.
    Outcome run(const GoldenCase& golden);
    Outcome accept(const GoldenCase& golden);

    Isolation isolation;
    Surroundings surroundings;
    std::string printed;

private:
    QString path(const QString& name) const;
    Outcome keepPrinted(Outcome (*action)(const GoldenCase&, const Surroundings&, QTextStream&),
                        const GoldenCase& golden);
};

} // namespace golden

#endif
