// A host in C++ that carries a C++ runtime of its own beside the library's.
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr std::size_t LongText = std::size_t{24} * 1024 * 1024;
constexpr rlim_t Spare = rlim_t{8} * 1024 * 1024;
constexpr int Threads = 4;
constexpr const char* Message = "an error of the host";

void throwAndCatch() {
    try {
        throw std::runtime_error(Message);
    } catch (const std::exception& error) {
        CHECK_TEXT(Message, error.what());
    }
}

void limitMemory() {
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    CHECK(pages > 0);
    const rlimit limit = {pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + Spare,
                          RLIM_INFINITY};
    CHECK(setrlimit(RLIMIT_AS, &limit) == 0);
}

void allowAllMemory() {
    const rlimit limit = {RLIM_INFINITY, RLIM_INFINITY};
    CHECK(setrlimit(RLIMIT_AS, &limit) == 0);
}

} // namespace

CASE(the_runtime_of_the_host_is_not_that_of_the_library) {
    const void* ofHost = reinterpret_cast<const void*>(&std::terminate);
    void* library = dlopen("libstdc++.so.6", RTLD_LAZY | RTLD_NOLOAD);
    CHECK(library != nullptr);
    const void* ofLibrary = dlsym(library, "_ZSt9terminatev");
    CHECK(ofLibrary != nullptr);
    CHECK(ofHost != ofLibrary);
    CHECK(dlclose(library) == 0);
}

CASE(exceptions_of_the_host_stay_its_own) {
    throwAndCatch();
    startLibrary();
    throwAndCatch();
    drawDocument(TICKET, "first.png");
    throwAndCatch();
    checkDraws(TICKET, "first.png");
}

CASE(exceptions_of_the_library_stay_its_own) {
    startLibrary();
    drawDocument(TICKET, "first.png");
    const std::string text(LongText, 'x');
    limitMemory();
    CHECK(xmlToImgCreateHandler(text.c_str()) == nullptr);
    allowAllMemory();
    throwAndCatch();
    checkDraws(TICKET, "first.png");
}

CASE(threads_of_the_host_throw_and_draw) {
    startLibrary();
    const std::string first = drawDocument(TICKET, "first.png");
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    std::vector<void*> handlers;
    std::vector<std::string> outputs;
    for (int i = 0; i < Threads; ++i) {
        handlers.push_back(handlerOf(TICKET));
        outputs.emplace_back(pathOf(textOf("%d.png", i)));
    }
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < handlers.size(); ++i) {
        threads.emplace_back([&, i] {
            throwAndCatch();
            CHECK_INT(0, xmlToImgCreateImage(handlers[i], outputs[i].c_str()));
            throwAndCatch();
        });
    }
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i].join();
        CHECK_INT(0, xmlToImgFreeHandler(handlers[i]));
        CHECK(sameContent(first.c_str(), outputs[i].c_str()));
    }
}
