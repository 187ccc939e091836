#include "test_support.h"

#include <QFile>
#include <gmock/gmock.h>

namespace golden {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr char AcceptCommand[] = "scripts/golden accept shapes.box\n";

using Running = GoldenTree;
using Accepting = GoldenTree;
using OtherVersions = GoldenTree;

QString box() {
    return QStringLiteral("box");
}

TEST_F(Running, a_case_passes_in_silence_where_its_picture_is_what_is_rendered) {
    const GoldenCase golden = makeAcceptedCase(box());
    EXPECT_EQ(run(golden), Passed);
    EXPECT_EQ(printed, "");
}

TEST_F(Running, a_changed_pixel_fails_with_numbers_and_the_command_that_accepts) {
    const GoldenCase golden = makeAcceptedCase(box());
    changePicture(golden, [](QImage& picture) { picture.setPixel(5, 6, qRgb(255, 255, 200)); });
    EXPECT_EQ(run(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("1 pixel differs, by 55 at most"));
    EXPECT_THAT(printed, HasSubstr(AcceptCommand));
}

TEST_F(Running, another_size_fails) {
    const GoldenCase golden = makeAcceptedCase(box());
    changePicture(golden, [](QImage& picture) { picture = picture.copy(0, 0, 29, 21); });
    EXPECT_EQ(run(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("the size is 30 x 20, expected is 29 x 21"));
}

TEST_F(Running, another_resolution_fails) {
    const GoldenCase golden = makeAcceptedCase(box());
    changePicture(golden, [](QImage& picture) { picture.setDotsPerMeterX(4000); });
    EXPECT_EQ(run(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("the resolution in dots per metre is 7992 x 7992, "
                                   "expected is 4000 x 7992"));
}

TEST_F(Running, a_missing_picture_fails_with_the_command_that_accepts) {
    EXPECT_EQ(run(makeCase(box())), Failed);
    EXPECT_THAT(printed, HasSubstr("there is no picture"));
    EXPECT_THAT(printed, HasSubstr(AcceptCommand));
}

TEST_F(Running, a_document_that_renders_nothing_fails_without_that_command) {
    const GoldenCase golden = makeAcceptedCase(box());
    write(QStringLiteral("cases/shapes/box.xml"), "no document");
    EXPECT_EQ(run(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("no picture was written"));
    EXPECT_THAT(printed, Not(HasSubstr(AcceptCommand)));
}

TEST_F(Running, a_tag_that_cannot_be_set_fails) {
    const GoldenCase golden = makeAcceptedCase(box());
    write(QStringLiteral("cases/shapes/box.tags"), "# comment\n\n@c.unknown=1\n");
    EXPECT_EQ(run(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("cannot set '@c.unknown=1'"));
}

TEST_F(Running, tags_and_parameter_files_are_applied) {
    const GoldenCase golden = makeAcceptedCase(box());
    write(QStringLiteral("cases/shapes/box.tags"), "params=box.params.xml\nc.height=50\n");
    write(QStringLiteral("cases/shapes/box.params.xml"),
          "<VelnorParams><VelnorParam id='c'><width>40</width></VelnorParam></VelnorParams>");
    EXPECT_EQ(run(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("the size is 40 x 50, expected is 30 x 20"));
}

TEST_F(Running, a_failure_leaves_the_three_pictures_side_by_side) {
    const GoldenCase golden = makeAcceptedCase(box());
    changePicture(golden, [](QImage& picture) { picture.setPixel(5, 6, qRgb(0, 0, 255)); });
    run(golden);
    const Failure failure = surroundings.records.all().value(0);
    const QImage comparison(failure.comparison);
    EXPECT_GT(comparison.width(), 3 * 30);
    EXPECT_GT(comparison.height(), 20);
    EXPECT_EQ(QImage(failure.expected).pixel(5, 6), qRgb(0, 0, 255));
    EXPECT_EQ(QImage(failure.actual).pixel(5, 6), qRgb(255, 255, 255));
}

TEST_F(Accepting, a_new_picture_is_written_and_the_run_fails) {
    const GoldenCase golden = makeCase(box());
    EXPECT_EQ(accept(golden), Failed);
    EXPECT_EQ(QImage(golden.picture).size(), QSize(30, 20));
    EXPECT_EQ(run(golden), Passed);
}

TEST_F(Accepting, a_changed_picture_is_replaced_and_the_run_fails) {
    const GoldenCase golden = makeAcceptedCase(box());
    changePicture(golden, [](QImage& picture) { picture.setPixel(5, 6, qRgb(0, 0, 255)); });
    EXPECT_EQ(accept(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("1 pixel differs, by 255 at most"));
    EXPECT_EQ(run(golden), Passed);
}

TEST_F(Accepting, a_picture_that_is_right_keeps_its_bytes_and_the_run_passes) {
    const GoldenCase golden = makeAcceptedCase(box());
    QImage picture(golden.picture);
    picture.save(golden.picture, "PNG", 100); // other bytes, the same pixels
    const QByteArray before = read(golden.picture);
    EXPECT_EQ(accept(golden), Passed);
    EXPECT_EQ(read(golden.picture), before);
}

TEST_F(Accepting, a_document_that_renders_nothing_fails_and_keeps_the_picture) {
    const GoldenCase golden = makeAcceptedCase(box());
    write(QStringLiteral("cases/shapes/box.xml"), "no document");
    EXPECT_EQ(accept(golden), Failed);
    EXPECT_THAT(printed, HasSubstr("no picture was written"));
    EXPECT_EQ(QImage(golden.picture).size(), QSize(30, 20));
}

TEST_F(OtherVersions, skip_a_listed_case_and_say_why) {
    const GoldenCase golden = makeCase(box());
    write(QStringLiteral("versions.txt"), "zint 1.9.9\n");
    write(QStringLiteral("version_dependent.txt"), "# comment\nshapes.b* Qt,zint it decides\n");
    EXPECT_EQ(run(golden), Skipped);
    EXPECT_EQ(printed, "SKIPPED shapes.box: it decides; with zint 2.0.0 in the place of 1.9.9\n");
}

TEST_F(OtherVersions, do_not_skip_a_case_that_is_not_listed) {
    const GoldenCase golden = makeCase(box());
    write(QStringLiteral("versions.txt"), "zint 1.9.9\n");
    write(QStringLiteral("version_dependent.txt"), "shapes.bo zint it decides\n");
    EXPECT_EQ(run(golden), Failed);
}

TEST_F(OtherVersions, do_not_skip_a_case_that_depends_on_another_library) {
    const GoldenCase golden = makeCase(box());
    write(QStringLiteral("versions.txt"), "zint 1.9.9\n");
    write(QStringLiteral("version_dependent.txt"), "shapes.box Qt it decides\n");
    EXPECT_EQ(run(golden), Failed);
}

TEST_F(OtherVersions, the_recorded_versions_skip_nothing) {
    const GoldenCase golden = makeCase(box());
    write(QStringLiteral("version_dependent.txt"), "shapes.box zint it decides\n");
    EXPECT_EQ(run(golden), Failed);
}

TEST_F(OtherVersions, are_told_by_the_loaded_libraries) {
    const Versions versions = loadedVersions();
    EXPECT_EQ(versions.keys(), QStringList({QStringLiteral("FreeType"), QStringLiteral("Qt"),
                                            QStringLiteral("zint")}));
    for (const QString& version : versions) {
        EXPECT_THAT(version.toStdString(), testing::MatchesRegex("[1-9][0-9]*\\.[0-9]+\\.[0-9]+"));
    }
}

} // namespace
} // namespace golden
