#include "ui/help/HelpFile.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(HelpSearch, FindsTopicsThatHoldAllWords) {
    HelpSearch search;
    search.addTopic(QStringLiteral("a"), QStringLiteral("Saving"),
                    QStringLiteral("The template, the folder."));
    search.addTopic(QStringLiteral("b"), QStringLiteral("Templates"), QStringLiteral("Größe of a folder"));
    search.addTopic(QStringLiteral("c"), QStringLiteral("Keys"),
                    QStringLiteral("template template template: save it by key"));
    struct Case {
        const char* query;
        const char* topics;
    };
    const Case cases[] = {
        {"template", "bca"}, {"TEMPL fold", "ba"},   {"sav", "ac"}, {"größe", "b"}, {"GRÖß", "b"},
        {"late", ""},        {"keys template", "c"}, {"", ""},      {" .,- ", ""},  {"template nowhere", ""},
    };
    for (const Case& item : cases) {
        QString topics;
        for (const HelpHit& hit : search.find(QString::fromUtf8(item.query))) {
            topics += hit.topic;
        }
        EXPECT_EQ(topics.toStdString(), item.topics) << item.query;
    }
}

}  // namespace
}  // namespace mergeloom
