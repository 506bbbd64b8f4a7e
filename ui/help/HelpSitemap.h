#pragma once

#include <QString>
#include <vector>

namespace mergeloom {

/// A line of the contents or of the index of a help file.
struct HelpEntry {
    QString title;
    QString topic;  ///< the topic's path inside the help file; empty for a heading without one
    std::vector<HelpEntry> children;
};

/// Reads the list of a contents (.hhc) or index (.hhk) file: nested lists of objects of the type
/// "text/sitemap" with the parameters Name and Local. Everything else is ignored.
std::vector<HelpEntry> readSitemap(const QString& html);

/// Returns the path of a topic from the help file's root as links write it: without "/" or "./" before it,
/// with "/" between its parts and escapes resolved. A "#" and the place after it stay.
QString normalizedTopic(const QString& link);

}  // namespace mergeloom
