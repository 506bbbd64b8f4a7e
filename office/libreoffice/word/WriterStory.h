#pragma once

#include "office/libreoffice/word/Needle.h"
#include "office/libreoffice/word/StoryMap.h"

#include <com/sun/star/text/XTextTable.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// Finds a story's text in Writer; most stories are never asked for it.
using TextSource = std::function<TextReference()>;

/// A story of a document: its text in Writer with the texts of its cells, and what is known of its positions.
class WriterStory {
  public:
    /// The name as Range.storyName gives it.
    WriterStory(std::string name, TextSource source, const Reference<css::text::XTextTablesSupplier>& tables)
        : name_(std::move(name)), source_(std::move(source)), tables_(tables) {}

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] StoryMap& map() { return map_; }

    /// Writer's text of that key; the same reference whenever it is asked for. Raises kNotAvailable when
    /// Writer does not hand it out.
    const TextReference& textOf(const TextKey& key);
    /// The same for a cursor that goes through it.
    NeedleText needleText(const TextKey& key);
    [[nodiscard]] Reference<css::text::XTextTable> writerTable(const MappedTable& table) const;
    /// Forgets what is known of Writer's objects, which are to be found anew.
    void renew(TextSource source);
    /// Forgets the texts of cells, whose objects may have been replaced.
    void forgetCells() { cells_.clear(); }

  private:
    [[nodiscard]] bool isBody() const { return name_ == "body"; }

    std::string name_;
    TextSource source_;
    TextReference text_;
    Reference<css::text::XTextTablesSupplier> tables_;
    std::map<std::pair<std::string, std::string>, TextReference> cells_;
    StoryMap map_;
};

/// The objects of the kind that begin in the stretch; a caret has none.
inline std::vector<ObjectPtr> objectsIn(const LiveStretch& stretch, ObjectKind kind) {
    return stretch.story->map().objectsIn({stretch.start, stretch.end}, kind);
}

}  // namespace mergeloom::libreoffice
