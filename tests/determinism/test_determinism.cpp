// The same document makes the same file, byte for byte.
#include "cases.h"
#include "host_process.h"
#include "locales.h"
#include "seeds.h"
#include "support/same_picture.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <random>

namespace {

constexpr int Threads = 4;

// Each case drawn twice by a process that draws nothing else.
const std::vector<std::vector<QByteArray>>& drawnAlone() {
    static const std::vector<std::vector<QByteArray>> files = [] {
        HostProcess host;
        std::vector<std::vector<QByteArray>> pairs;
        for (const Case& drawn : allCases()) {
            pairs.push_back(host.draw({drawn, drawn}));
        }
        return pairs;
    }();
    return files;
}

const QByteArray& expectedFile(const Case& drawn) {
    const auto found = std::lower_bound(
        allCases().begin(), allCases().end(), drawn,
        [](const Case& left, const Case& right) { return left.name < right.name; });
    return drawnAlone().at(static_cast<size_t>(found - allCases().begin())).front();
}

void expectSameFiles(const std::vector<Case>& cases, const std::vector<QByteArray>& files) {
    ASSERT_EQ(files.size(), cases.size());
    for (size_t i = 0; i < cases.size(); ++i) {
        const QByteArray& expected = expectedFile(cases[i]);
        EXPECT_TRUE(files[i] == expected)
            << cases[i].name.toStdString() << ", number " << i << " in its process: "
            << samePicture(QImage::fromData(files[i]), QImage::fromData(expected)).message();
    }
}

// The same numbers on every machine for the same seed.
std::vector<Case> shuffled(std::vector<Case> cases, std::uint32_t seed) {
    std::mt19937 random(seed);
    for (size_t left = cases.size(); left > 1; --left) {
        std::swap(cases[left - 1], cases[random() % left]);
    }
    return cases;
}

// Fonts belong to the whole process, and all handlers of a threaded host exist at once: cases with
// other fonts are drawn by another process.
std::vector<std::vector<Case>> casesByFontFolder() {
    std::map<QString, std::vector<Case>> folders;
    for (const Case& drawn : allCases()) {
        folders[drawn.fonts].push_back(drawn);
    }
    std::vector<std::vector<Case>> lists;
    for (const auto& folder : folders) {
        lists.push_back(folder.second);
    }
    return lists;
}

void expectSameFilesOnThreads(const std::vector<Case>& cases, std::uint32_t seed) {
    std::vector<std::vector<Case>> lists;
    for (std::uint32_t thread = 0; thread < Threads; ++thread) {
        lists.push_back(shuffled(cases, seed * Threads + thread));
    }
    HostProcess host;
    const auto files = host.drawAtTheSameTime(lists);
    for (size_t thread = 0; thread < lists.size(); ++thread) {
        expectSameFiles(lists[thread], files[thread]);
    }
}

void expectSameFilesIn(HostProcess& host) {
    expectSameFiles(allCases(), host.draw(allCases()));
}

void expectSameFilesInLocale(const char* name) {
    const ScratchFolder locales;
    const QString locale = QLatin1String(name);
    compileLocale(locale, locales.path(QString()));
    HostProcess host;
    host.setVariable("LOCPATH", locales.path(QString()));
    host.setVariable("LANG", locale);
    host.setVariable("LC_ALL", locale);
    expectSameFilesIn(host);
    if (!host.locale().contains(name)) {
        std::cout << name << " is not on this machine: only its variables were set" << std::endl;
    }
}

} // namespace

TEST(Determinism, TheSecondDrawingMakesTheSameFileAsTheFirst) {
    for (size_t i = 0; i < allCases().size(); ++i) {
        const Case& drawn = allCases()[i];
        expectSameFiles({drawn, drawn}, drawnAlone()[i]);
    }
}

TEST(Determinism, WhatTheProcessDrewBeforeDoesNotMatter) {
    for (const std::uint32_t seed : orderSeeds()) {
        std::cout << "seed " << seed << std::endl;
        const testing::ScopedTrace trace(__FILE__, __LINE__, "seed " + std::to_string(seed));
        HostProcess host;
        const std::vector<Case> cases = shuffled(allCases(), seed);
        expectSameFiles(cases, host.draw(cases));
    }
}

TEST(Determinism, ThreadsThatDrawAtTheSameTimeMakeTheSameFiles) {
    for (const std::uint32_t seed : orderSeeds()) {
        std::cout << "seed " << seed << std::endl;
        const testing::ScopedTrace trace(__FILE__, __LINE__, "seed " + std::to_string(seed));
        for (const std::vector<Case>& cases : casesByFontFolder()) {
            expectSameFilesOnThreads(cases, seed);
        }
    }
}

TEST(Determinism, TheLocaleDoesNotMatter) {
    for (const char* name : {"de_DE.UTF-8", "ar_EG.UTF-8"}) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, name);
        expectSameFilesInLocale(name);
    }
}

TEST(Determinism, FoldersAndTimeZoneOfTheUserDoNotMatter) {
    const ScratchFolder other;
    HostProcess host;
    host.setVariable("HOME", other.path(QStringLiteral("no such home")));
    host.setVariable("TMPDIR", other.path(QStringLiteral("no such folder")));
    host.setVariable("XDG_CACHE_HOME", other.path(QStringLiteral("no such cache")));
    host.setVariable("TZ", QStringLiteral("Pacific/Chatham"));
    expectSameFilesIn(host);
}
