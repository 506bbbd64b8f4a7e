#include "droppers/SpecialPlace.h"

#include "droppers/modBookmarkAdd.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Selection.h"

namespace mergeloom {

namespace {

constexpr int kMostPlacesOfAKind = 20;

/// The first free name of the kind, or an empty text when all are taken.
std::string freeSpecialName(word::Bookmarks& bookmarks, DropKind kind) {
    const std::string base = WordNormalizeName(DropKindName(kind), false);
    for (int number = 0; number < kMostPlacesOfAKind; ++number) {
        std::string name = base + std::to_string(number);
        if (!bookmarks.Exists(name)) return name;
    }
    return {};
}

}  // namespace

bool addSpecialPlace(DropReports& reports, DropKind kind, word::Document& document) {
    const word::ApplicationPtr application = document.Application();
    if (application->Name() != "Microsoft Word") return false;
    std::string name = freeSpecialName(*document.Bookmarks(), kind);
    if (name.empty()) return reports.refuse("The max number of the special bookmarks is exceeded!");

    const PlaceContent content{.vstrText = kind == DropKind::OptionalSpace ? " " : "\r\n"};
    const word::RangePtr selected = application->Selection()->Range();
    return rWordBookmarkAdd(reports, document, *selected, name, content) != nullptr;
}

}  // namespace mergeloom
