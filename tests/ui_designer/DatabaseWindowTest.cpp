#include "doubles/TemporaryFolder.h"
#include "ui/designer/DatabaseWindow.h"
#include "ui/designer/DescribeProcess.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>
#include <QThread>
#include <algorithm>
#include <memory>

namespace mergeloom {
namespace {

TEST(DatabaseWindow, ShowsThatTheProgramIsMissing) {
    DatabaseWindow window(nullptr, {[] { return std::string(); }, [](const QString&) { return "a.xml"; }},
                          {});
    const auto isShown = [&] {
        const QList<QLabel*> labels = window.findChildren<QLabel*>();
        return std::ranges::any_of(labels, [](const QLabel* label) {
            return label->text() ==
                   "The program mergeloom-describe, which reads databases, is not installed.";
        });
    };
    window.open("shop.db");
    EXPECT_TRUE(isShown());
    window.repeat({{"shop.db"}, {}, {}, "a.xml"});
    EXPECT_TRUE(isShown());
}

TEST(DescribeProcess, WaitsAtItsEndForRunsThatWereCancelled) {
    const TemporaryFolder folder;
    // Removes its temporary file when it is told to end, as the program does.
    folder.put("describe",
               "#!/bin/sh\ntrap 'sleep 0.2; rm \"$1.part\"; exit 1' TERM\n: > \"$1.part\"\n"
               "while :; do sleep 0.02; done\n");
    std::filesystem::permissions(folder / "describe", std::filesystem::perms::owner_all);
    const std::string part = folder / "shop.db.part";
    auto process = std::make_unique<DescribeProcess>(QString::fromStdString(folder / "describe"));
    process->list({QString::fromStdString(folder / "shop.db")});
    while (!std::filesystem::exists(part)) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
    process->cancel();
    process.reset();
    EXPECT_FALSE(std::filesystem::exists(part));
}

}  // namespace
}  // namespace mergeloom
