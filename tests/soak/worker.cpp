#include "worker.h"

#include "filling.h"
#include "queries.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <stdexcept>

namespace soak {

namespace {

constexpr size_t MostJobs = 8;
constexpr long MostImagesAtOnce = 4;

using Together = std::shared_lock<std::shared_mutex>;
using Alone = std::unique_lock<std::shared_mutex>;

Handler makeHandlerBesideItsFiles(const Document& document, bool wide) {
    if (wide) {
        const Wide layout(document.layout);
        return Handler(xmlToImgCreateHandlerUnicode(layout.data(), layout.size()));
    }
    return Handler(xmlToImgCreateHandler(document.layout.c_str()));
}

Handler makeHandlerWithFolders(const Document& document, const std::string& fonts, bool wide) {
    if (wide) {
        const Wide layout(document.layout);
        const Wide images(document.images);
        const Wide wideFonts(fonts);
        return Handler(xmlToImgCreateHandlerWithDirsUnicode(layout.data(), layout.size(),
                                                            images.data(), images.size(),
                                                            wideFonts.data(), wideFonts.size()));
    }
    return Handler(xmlToImgCreateHandlerWithDirs(document.layout.c_str(), document.images.c_str(),
                                                 fonts.c_str()));
}

} // namespace

const Worker::Output Worker::outputs[] = {
    {".png", true}, {".png", true}, {".png", true}, {".png", true},  {".BMP", true},
    {".ppm", true}, {".xpm", true}, {".jpg", true}, {".odd", false}, {"/no/such/folder.png", false},
};

void switchKeeping(Host& host, bool keep) {
    xmlToImgSetEmbeddedFontKeepFlag(0);
    Handler(xmlToImgCreateHandler(nullptr)).reset();
    xmlToImgSetEmbeddedFontKeepFlag(keep ? 1 : 0);
    host.keepsFonts = keep;
}

Worker::Worker(Host& sharedHost, std::uint32_t seed, std::string workerName)
    : host(sharedHost), random(seed), name(std::move(workerName)) {}

Worker::~Worker() {
    const Alone alone(host.handlers);
    jobs.clear();
}

void Worker::drawExamples() {
    for (const Document& example : host.documents.examples) {
        Job job{&example, makeHandler(example)};
        drawAs(outputs[0], job);
    }
}

void Worker::draw(long images) {
    while (images > 0) {
        if (random.oneIn(60)) {
            const Alone alone(host.handlers);
            switchKeeping(host, !host.keepsFonts);
        }
        images -= work(chooseJob(), images);
        if (!random.oneIn(3)) {
            freeJob(random.below(jobs.size()));
        }
    }
}

const Document& Worker::chooseDocument() {
    if (random.oneIn(10)) {
        return random.oneOf(host.documents.examples);
    }
    return random.oneOf(random.oneIn(12) ? host.documents.broken : host.documents.golden);
}

Handler Worker::makeHandler(const Document& document) {
    const bool wide = random.oneIn(2);
    const Alone alone(host.handlers);
    // Kept fonts come from one folder: those of a second one would stay registered for good, and
    // could not be told from a leak.
    const std::string fonts = host.keepsFonts ? VELNOR_TEST_FONTS : document.fonts;
    Handler handler = fonts.empty() && document.images.empty() && random.oneIn(2)
                          ? makeHandlerBesideItsFiles(document, wide)
                          : makeHandlerWithFolders(document, fonts, wide);
    if (!handler) {
        throw std::runtime_error("no handler was made");
    }
    return handler;
}

Worker::Job Worker::makeJob() {
    const Document& document = chooseDocument();
    return {&document, makeHandler(document)};
}

Worker::Job& Worker::chooseJob() {
    if (jobs.size() == MostJobs || (!jobs.empty() && random.oneIn(3))) {
        return random.oneOf(jobs);
    }
    jobs.push_back(makeJob());
    return jobs.back();
}

void Worker::freeJob(size_t place) {
    const Alone alone(host.handlers);
    std::swap(jobs[place], jobs.back());
    jobs.pop_back();
}

// The number of images that were drawn.
long Worker::work(Job& job, long mostImages) {
    const Together together(host.handlers);
    fill(job);
    const long images = std::min(random.between(1L, MostImagesAtOnce), mostImages);
    for (long i = 0; i < images; ++i) {
        ask(job.handler.get(), *job.document, random);
        drawAs(random.oneOf(outputs), job);
        changeSomething(job);
    }
    return images;
}

void Worker::fill(Job& job) {
    if (random.oneIn(4)) {
        xmlToImgClearAllDictionary(job.handler.get());
    }
    applyValues(job.handler.get(), *job.document, random.oneIn(2));
}

void Worker::changeSomething(Job& job) {
    if (random.oneIn(2) && !job.document->objects.empty()) {
        setRandomText(job.handler.get(), random.oneOf(job.document->objects), random);
    }
}

void Worker::drawAs(const Output& output, Job& job) {
    const std::string path = host.outputFolder + '/' + name + output.suffix;
    if (random.oneIn(2)) {
        const Wide wide(path);
        xmlToImgCreateImageUnicode(job.handler.get(), wide.data(), wide.size());
    } else {
        xmlToImgCreateImage(job.handler.get(), path.c_str());
    }
    std::error_code none;
    const bool wasWritten = std::filesystem::remove(path, none);
    if (wasWritten != (job.document->makesPicture && output.isWritten)) {
        throw std::runtime_error(
            (wasWritten ? "a picture was made of " : "no picture was made of ") +
            job.document->layout + " as " + path);
    }
}

} // namespace soak
