/* Pictures that items show: where their files are looked for. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <fcntl.h>
#include <unistd.h>

#define PAGE_WITH(path)                                                                            \
    CANVAS_OF(100, 100)                                                                            \
    "<VelnorItem class='image'><x>5</x><y>5</y><filepath>" path "</filepath></VelnorItem>"

/* Two pictures of one name, a small one beside the document and a large one in "images", and what
 * the document looks like with each. */
static void startWithPictures(void) {
    startLibrary();
    makeFolder("images");
    makeFolder("page");
    makeFolder("page/sub");
    render(writeLayout("small.xml", CANVAS_OF(20, 20) BOX), "page/logo.png");
    render(writeLayout("large.xml", CANVAS_OF(80, 80) BOX), "images/logo.png");
    writeLayout("page/page.xml", PAGE_WITH("logo.png"));
    render("page/page.xml", "beside.png");
    writeLayout("images/page.xml", PAGE_WITH("logo.png"));
    render("images/page.xml", "elsewhere.png");
    CHECK(!sameContent("beside.png", "elsewhere.png"));
}

static void renderWithImages(const char* images, const char* output) {
    void* handler = xmlToImgCreateHandlerWithDirs(pathOf("page/page.xml"), images, NULL);
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(pictures_are_looked_for_in_the_given_directory) {
    startWithPictures();
    renderWithImages(pathOf("images"), "given.png");
    CHECK(sameContent("given.png", "elsewhere.png"));
    renderWithImages(pathOf("images/"), "slash.png");
    CHECK(sameContent("slash.png", "elsewhere.png"));
}

CASE(a_wide_picture_directory_ends_at_its_zero_or_at_its_length) {
    startWithPictures();
    const unsigned short* page = wideOf(pathOf("page/page.xml"));
    const unsigned short* images = wideOf(pathOf("images"));
    void* first =
        xmlToImgCreateHandlerWithDirsUnicode(page, UpToZero, images, UpToZero, NULL, UpToZero);
    CHECK_INT(0, xmlToImgCreateImage(first, pathOf("zero.png")));
    CHECK_INT(0, xmlToImgFreeHandler(first));
    void* second = xmlToImgCreateHandlerWithDirsUnicode(
        page, UpToZero, wideWithTail(pathOf("images")), wideLength(images), NULL, 0);
    CHECK_INT(0, xmlToImgCreateImage(second, pathOf("length.png")));
    CHECK_INT(0, xmlToImgFreeHandler(second));
    CHECK(sameContent("zero.png", "elsewhere.png"));
    CHECK(sameContent("length.png", "elsewhere.png"));
}

CASE(an_empty_picture_directory_means_beside_the_document) {
    startWithPictures();
    renderWithImages("", "empty.png");
    renderWithImages(NULL, "null.png");
    CHECK(sameContent("empty.png", "beside.png"));
    CHECK(sameContent("null.png", "beside.png"));
}

CASE(a_picture_directory_without_a_separator_is_ignored) {
    startWithPictures();
    CHECK(chdir(scratchFolder()) == 0);
    renderWithImages("images", "bare.png");
    CHECK(sameContent("bare.png", "beside.png"));
    renderWithImages("./images", "dotted.png");
    CHECK(sameContent("dotted.png", "elsewhere.png"));
}

CASE(a_relative_picture_name_starts_at_the_document) {
    startWithPictures();
    writeLayout("page/page.xml", PAGE_WITH("sub\\..\\logo.png"));
    render("page/page.xml", "relative.png");
    CHECK(sameContent("relative.png", "beside.png"));
}

CASE(with_a_picture_directory_folders_of_the_name_are_dropped) {
    startWithPictures();
    writeLayout("page/page.xml", PAGE_WITH("no\\such\\folder\\logo.png"));
    renderWithImages(pathOf("images"), "dropped.png");
    CHECK(sameContent("dropped.png", "elsewhere.png"));
}

CASE(an_absolute_picture_name_is_used_as_it_is) {
    startWithPictures();
    writeLayout("page/page.xml", textOf(PAGE_WITH("%s"), pathOf("page/logo.png")));
    renderWithImages(pathOf("images"), "absolute.png");
    CHECK(sameContent("absolute.png", "beside.png"));
}

/* The checksum of its dots is wrong, which libpng says on standard error. */
static void writeBrokenPicture(const char* name) {
    render(writeLayout("small.xml", CANVAS_OF(20, 20) BOX), name);
    const Content picture = readFile(name);
    const int file = open(pathOf(name), O_WRONLY);
    CHECK(file >= 0 && pwrite(file, "????", 4, (off_t)picture.size - 16) == 4);
    CHECK(close(file) == 0);
}

CASE(a_broken_picture_does_no_harm_where_nobody_reads_standard_error) {
    int ends[2];
    startLibrary();
    writeBrokenPicture("logo.png");
    writeLayout("page.xml", PAGE_WITH("logo.png") BOX);
    sendFailuresTo(dup(STDERR_FILENO));
    CHECK(pipe(ends) == 0 && close(ends[0]) == 0);
    CHECK(dup2(ends[1], STDERR_FILENO) == STDERR_FILENO);
    CHECK_INT(100, pngWidth(render("page.xml", "page.png")));
}

/* libjpeg says through Qt that the rest is missing. */
CASE(a_picture_that_was_cut_short_goes_without_a_word) {
    captureOutput();
    startLibrary();
    const char* picture = render(writeLayout("small.xml", CANVAS_OF(20, 20) BOX), "logo.jpg");
    CHECK(truncate(picture, (off_t)readFile("logo.jpg").size - 30) == 0);
    writeLayout("page.xml", PAGE_WITH("logo.jpg") BOX);
    CHECK_INT(100, pngWidth(render("page.xml", "page.png")));
    checkSilent();
}
