#pragma once

#include "office/libreoffice/word/Needle.h"
#include "office/libreoffice/word/StoryMap.h"

#include <com/sun/star/text/XTextTable.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>
#include <map>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// A story of a document: its text in Writer with the texts of its cells, and what is known of its positions.
class WriterStory {
  public:
    /// The name as Range.storyName gives it.
    WriterStory(std::string name, TextReference text, Reference<css::text::XTextTablesSupplier> tables)
        : name_(std::move(name)), text_(std::move(text)), tables_(std::move(tables)) {}

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const TextReference& text() const { return text_; }
    [[nodiscard]] StoryMap& map() { return map_; }

    /// Writer's text of that key; the same reference whenever it is asked for.
    const TextReference& textOf(const TextKey& key);
    /// The same for a cursor that goes through it.
    NeedleText needleText(const TextKey& key) { return {textOf(key), map_.stepsBehindTables(key)}; }
    [[nodiscard]] Reference<css::text::XTextTable> writerTable(const MappedTable& table) const;
    /// Forgets the texts of cells, whose objects may have been replaced.
    void forgetCells() { cells_.clear(); }

  private:
    std::string name_;
    TextReference text_;
    Reference<css::text::XTextTablesSupplier> tables_;
    std::map<std::pair<std::string, std::string>, TextReference> cells_;
    StoryMap map_;
};

}  // namespace mergeloom::libreoffice
