#include "batch/unnamed_file.h"

#include "failure.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

[[noreturn]] void fail() {
    throw tool::Failure(tool::ExitCode::NotWritten,
                        std::string("the names of the outputs cannot be kept: ") +
                            std::strerror(errno) + " in the folder of temporary files");
}

tool::Descriptor openUnnamed() {
    const char* const given = std::getenv("TMPDIR");
    std::string name =
        std::string(given == nullptr || *given == '\0' ? "/tmp" : given) + "/velnorxmltoimg-XXXXXX";
    tool::Descriptor file(mkostemp(name.data(), O_CLOEXEC));
    if (file.get() == -1 || unlink(name.c_str()) != 0) {
        fail();
    }
    return file;
}

} // namespace

tool::UnnamedFile::UnnamedFile() : file(openUnnamed()) {}

void tool::UnnamedFile::resize(std::uint64_t size) {
    if (ftruncate(file.get(), static_cast<off_t>(size)) != 0) {
        fail();
    }
}

void tool::UnnamedFile::read(std::uint64_t place, void* bytes, std::uint64_t size) const {
    if (pread(file.get(), bytes, size, static_cast<off_t>(place)) != static_cast<ssize_t>(size)) {
        fail();
    }
}

void tool::UnnamedFile::write(std::uint64_t place, const void* bytes, std::uint64_t size) {
    if (pwrite(file.get(), bytes, size, static_cast<off_t>(place)) != static_cast<ssize_t>(size)) {
        fail();
    }
}
