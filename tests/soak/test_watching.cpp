// The soak is worth something only if it sees what is left behind.
#include "measurements.h"
#include "surroundings.h"
#include "verdict.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <future>
#include <memory>
#include <string>
#include <thread>

using namespace soak;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr long ALot = 4L * 1024 * 1024;

Measurement after(long images) {
    Measurement taken;
    taken.images = images;
    taken.anonymous = 2000;
    taken.held = 1000;
    taken.descriptors = 7;
    taken.threads = 2;
    return taken;
}

// Of a run of 20,500 images that ended like this.
Course endingWith(const Measurement& last) {
    Course course;
    for (const long images : {0L, WarmUpImages, 5000L}) {
        course.add(after(images));
    }
    course.add(last);
    return course;
}

} // namespace

TEST(Measuring, SeesMemoryThatIsHeld) {
    const Measurement before = measureProcess();
    const std::unique_ptr<char, decltype(&std::free)> memory(static_cast<char*>(std::malloc(ALot)),
                                                             std::free);
    std::memset(memory.get(), 1, ALot);
    const Measurement now = measureProcess();
    EXPECT_GE(now.anonymous, before.anonymous + ALot / 1024 - 100);
#ifndef VELNOR_SOAK_WITH_SANITIZERS
    EXPECT_GE(now.held, before.held + ALot / 1024);
#endif
}

TEST(Measuring, SeesAnOpenDescriptor) {
    const Measurement before = measureProcess();
    const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(before.descriptors + 1, measureProcess().descriptors);
    close(file);
    EXPECT_EQ(before.descriptors, measureProcess().descriptors);
}

TEST(Measuring, SeesAThread) {
    const Measurement before = measureProcess();
    std::promise<void> end;
    std::thread thread([&] { end.get_future().wait(); });
    EXPECT_EQ(before.threads + 1, measureProcess().threads);
    end.set_value();
    thread.join();
}

TEST(Surroundings, CountFilesWhereverTheyAreLeft) {
    const Surroundings surroundings;
    EXPECT_EQ(0, surroundings.filesLeft());
    std::ofstream(surroundings.outputFolder() + "/picture.png");
    std::ofstream(std::getenv("TMPDIR") + std::string("/scratch"));
    std::ofstream(std::getenv("HOME") + std::string("/.cache"));
    EXPECT_EQ(3, surroundings.filesLeft());
    std::ofstream(surroundings.documentFolder() + "/document.xml");
    EXPECT_EQ(3, surroundings.filesLeft());
}

TEST(Verdict, PassesWhatStayedFlat) {
    EXPECT_THAT(complaints(endingWith(after(20500))), IsEmpty());
}

TEST(Verdict, RefusesADescriptorAThreadAndAFileThatAreLeft) {
    Measurement last = after(20500);
    ++last.descriptors;
    ++last.threads;
    ++last.files;
    EXPECT_THAT(complaints(endingWith(last)),
                ElementsAre("open descriptors: 7 before, 8 after", "threads: 2 before, 3 after",
                            "files: 0 before, 1 after"));
}

#ifndef VELNOR_SOAK_WITH_SANITIZERS
TEST(Verdict, RefusesAMebibyteOfGrowthSinceTheWarmUp) {
    Measurement last = after(20500);
    last.anonymous += AllowedGrowth - 1;
    EXPECT_THAT(complaints(endingWith(last)), IsEmpty());
    last.anonymous += 1;
    EXPECT_THAT(complaints(endingWith(last)), ElementsAre("the process grew by 1024 KiB"));
    EXPECT_THAT(summary(endingWith(last)), StartsWith("FAILED: 20500 images"));
}

TEST(Verdict, RefusesMemoryThatIsHeldAndWasNotAfterTheWarmUp) {
    Measurement last = after(20500);
    last.held += AllowedHeld - 1;
    EXPECT_THAT(complaints(endingWith(last)), IsEmpty());
    last.held += 1;
    EXPECT_THAT(complaints(endingWith(last)), ElementsAre("memory held grew by 128 KiB"));
}
#endif

TEST(Verdict, DoesNotJudgeTheMemoryOfAWarmUp) {
    Course course;
    course.add(after(0));
    Measurement last = after(WarmUpImages - 1);
    last.anonymous += ALot;
    last.held += ALot;
    course.add(last);
    EXPECT_THAT(complaints(course), IsEmpty());
}
