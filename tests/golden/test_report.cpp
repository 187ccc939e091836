#include "report.h"
#include "test_support.h"

#include <QFile>
#include <QRegularExpression>
#include <gmock/gmock.h>

namespace golden {
namespace {

using testing::HasSubstr;
using testing::Not;

class Report : public GoldenTree {
protected:
    std::string page() {
        const QString file = isolation.path(QStringLiteral("failures.html"));
        writeReport(surroundings.records.all(), file);
        return read(file).toStdString();
    }

    GoldenCase makeFailedCase(const QString& name) {
        const GoldenCase golden = makeAcceptedCase(name);
        changePicture(golden, [](QImage& picture) { picture.setPixel(0, 0, qRgb(0, 0, 0)); });
        run(golden);
        return golden;
    }
};

TEST_F(Report, holds_the_failures_alone) {
    makeFailedCase(QStringLiteral("wrong"));
    run(makeAcceptedCase(QStringLiteral("right")));
    const std::string text = page();
    EXPECT_THAT(text, HasSubstr("id=\"shapes.wrong\""));
    EXPECT_THAT(text, HasSubstr("1 pixel differs, by 255 at most"));
    EXPECT_THAT(text, HasSubstr("scripts/golden accept shapes.wrong"));
    EXPECT_THAT(text, HasSubstr("Golden cases that fail: 1<"));
    EXPECT_THAT(text, Not(HasSubstr("shapes.right")));
}

TEST_F(Report, a_case_that_passes_again_leaves_it) {
    const GoldenCase golden = makeFailedCase(QStringLiteral("wrong"));
    changePicture(golden, [](QImage& picture) { picture.setPixel(0, 0, qRgb(255, 255, 255)); });
    run(golden);
    EXPECT_THAT(page(), Not(HasSubstr("shapes.wrong")));
}

TEST_F(Report, a_case_that_was_accepted_leaves_it) {
    accept(makeFailedCase(QStringLiteral("wrong")));
    EXPECT_THAT(page(), Not(HasSubstr("shapes.wrong")));
}

TEST_F(Report, a_case_that_was_deleted_leaves_it) {
    const GoldenCase golden = makeFailedCase(QStringLiteral("wrong"));
    QFile::remove(golden.document);
    EXPECT_THAT(page(), Not(HasSubstr("shapes.wrong")));
}

TEST_F(Report, holds_its_pictures_and_refers_to_no_other_file) {
    makeFailedCase(QStringLiteral("wrong"));
    const QString text = QString::fromStdString(page());
    EXPECT_EQ(text.count(QLatin1String("src=\"data:image/png;base64,")), 3);
    const QRegularExpression reference(QStringLiteral("(src=\"(?!data:)|href=|url\\(|https?:)"));
    EXPECT_FALSE(reference.match(text).hasMatch());
}

TEST_F(Report, a_failure_without_a_picture_has_empty_places) {
    run(makeCase(QStringLiteral("new")));
    const QString text = QString::fromStdString(page());
    EXPECT_EQ(text.count(QLatin1String("src=\"data:image/png;base64,")), 1);
}

} // namespace
} // namespace golden
