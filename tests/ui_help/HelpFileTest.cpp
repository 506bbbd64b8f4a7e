#include "base/AutomationError.h"
#include "doubles/TemporaryFolder.h"
#include "ui/help/HelpFile.h"
#include "ui/help/HelpSitemap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <algorithm>
#include <fstream>
#include <sstream>

namespace mergeloom {
namespace {

using testing::HasSubstr;

HelpFile builtFile() {
    return HelpFile(MERGELOOM_HELP_FILE);
}

std::string builtBytes() {
    std::ostringstream bytes;
    bytes << std::ifstream(MERGELOOM_HELP_FILE, std::ios::binary).rdbuf();
    return bytes.str();
}

QStringList topicsOf(const std::vector<HelpEntry>& entries) {
    QStringList topics;
    for (const HelpEntry& entry : entries) {
        if (!entry.topic.isEmpty()) topics += entry.topic;
        topics += topicsOf(entry.children);
    }
    return topics;
}

QStringList matches(const QString& html, const QString& pattern) {
    QStringList found;
    for (const QRegularExpressionMatch& match : QRegularExpression(pattern).globalMatch(html)) {
        found += match.captured(1);
    }
    return found;
}

/// Makes all calls that a user can cause in a help file. A damaged file works or raises an error that names
/// it.
void readAll(const std::string& path) {
    HelpFile file(path);
    for (const QString& topic : file.topics()) {
        static_cast<void>(file.topicHtml(topic));
    }
    static_cast<void>(file.search(QStringLiteral("template")));
}

TEST(BuiltHelpFile, TellsWhatItIs) {
    const HelpFile file = builtFile();
    EXPECT_EQ(file.title(), QStringLiteral("Mergeloom Help"));
    EXPECT_EQ(file.defaultTopic(), QStringLiteral("start.html"));
    EXPECT_THAT(file.topicHtml(QStringLiteral("/Start.html#top")).value_or(QString()).toStdString(),
                HasSubstr("<title>Mergeloom</title>"));
    EXPECT_FALSE(file.topicHtml(QStringLiteral("help.css")));
    EXPECT_FALSE(file.topicHtml(QStringLiteral("nowhere.html")));
    EXPECT_TRUE(file.read(QStringLiteral("help.css")));
}

TEST(BuiltHelpFile, ContentsAndIndexLeadToTopicsAndNoTopicIsLost) {
    const HelpFile file = builtFile();
    const QStringList topics = file.topics();
    EXPECT_GE(topics.size(), 25);
    QStringList inContents = topicsOf(file.contents());
    EXPECT_EQ(inContents.removeDuplicates(), 0);
    for (const QString& topic : inContents + topicsOf(file.index())) {
        EXPECT_TRUE(file.topicHtml(topic)) << topic.toStdString();
    }
    for (const QString& topic : topics) {
        EXPECT_TRUE(inContents.contains(topic)) << topic.toStdString();
    }
    EXPECT_GE(file.index().size(), file.contents().size());
}

TEST(BuiltHelpFile, LinksAndPicturesResolve) {
    const HelpFile file = builtFile();
    int links = 0;
    for (const QString& topic : file.topics()) {
        const QString html = file.topicHtml(topic).value_or(QString());
        for (const QString& link : matches(html, QStringLiteral("(?:href|src)=\"([^\"]*)\""))) {
            ++links;
            EXPECT_TRUE(file.read(link.section(u'#', 0, 0)))
                << topic.toStdString() << ": " << link.toStdString();
            const QString place = link.section(u'#', 1);
            const QString target = file.topicHtml(link).value_or(QString());
            EXPECT_TRUE(place.isEmpty() || target.contains(QStringLiteral("id=\"%1\"").arg(place)))
                << topic.toStdString() << ": " << link.toStdString();
        }
    }
    EXPECT_GT(links, 40);
}

TEST(BuiltHelpFile, EachContextNumberHasItsTopicAndEachTopicANumber) {
    const HelpFile file = builtFile();
    QStringList topics;
    for (const auto& [number, topic] : file.contexts()) {
        EXPECT_TRUE(file.topicHtml(topic)) << number;
        topics += topic;
    }
    EXPECT_EQ(file.contexts().at(1010), QStringLiteral("start.html"));
    topics.removeDuplicates();
    EXPECT_EQ(topics.size(), file.topics().size());
}

TEST(BuiltHelpFile, SearchFinds) {
    HelpFile file = builtFile();
    const std::vector<HelpHit> hits = file.search(QStringLiteral("optional space"));
    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(hits.front().topic, QStringLiteral("optional-space.html"));
    EXPECT_EQ(hits.front().title, QStringLiteral("Optional Space and Optional Carriage Return"));
    const std::vector<HelpHit> inText = file.search(QStringLiteral("pivot design"));
    ASSERT_EQ(inText.size(), 1U);
    EXPECT_EQ(inText.front().topic, QStringLiteral("drag-form.html"));
    EXPECT_TRUE(file.search(QStringLiteral("charset")).empty()) << "tags are no text";
}

TEST(HelpFile, WhatIsNoHelpFileIsNamed) {
    const TemporaryFolder folder;
    const std::string bytes = builtBytes();
    folder.put("empty.chm", "");
    folder.put("text.chm", std::string(5000, 'x'));
    folder.put("head.chm", bytes.substr(0, 90));
    folder.put("half.chm", bytes.substr(0, bytes.size() / 2));
    for (const char* const name : {"missing.chm", "empty.chm", "text.chm", "head.chm", "half.chm", "."}) {
        try {
            readAll(folder / name);
            ADD_FAILURE() << name;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead) << name;
            EXPECT_THAT(error.description(), HasSubstr("'" + (folder / name) + "'"));
        }
    }
}

/// Overwrites every part of the file in turn.
TEST(HelpFile, DamageIsToldOrDoesNoHarm) {
    const TemporaryFolder folder;
    const std::string bytes = builtBytes();
    constexpr std::size_t kSteps = 60;
    std::size_t told = 0;
    for (std::size_t step = 0; step < kSteps; ++step) {
        std::string damaged = bytes;
        const std::size_t at = step * bytes.size() / kSteps;
        damaged.replace(at, 16, 16, step % 2 == 0 ? '\xFF' : '\x01');
        folder.put("damaged.chm", damaged);
        try {
            readAll(folder / "damaged.chm");
        } catch (const AutomationError& error) {
            ++told;
            EXPECT_THAT(error.description(), HasSubstr("damaged.chm'")) << step;
        }
    }
    EXPECT_GT(told, 0U);
}

}  // namespace
}  // namespace mergeloom
