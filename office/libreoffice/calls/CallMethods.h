#pragma once

#include "office/libreoffice/calls/DocumentEditor.h"
#include "office/model/Undo.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

/// The calls that cross into LibreOffice's process. Both sides are built from this list, in which the place
/// of a method is its number.
namespace mergeloom::libreoffice {

/// Two members of one name.
inline constexpr auto kItemByNumber =
    static_cast<word::BookmarkPtr (word::Bookmarks::*)(int)>(&word::Bookmarks::Item);
inline constexpr auto kItemByName =
    static_cast<word::BookmarkPtr (word::Bookmarks::*)(const std::string&)>(&word::Bookmarks::Item);

template <class Interface_, auto kMember_>
struct Method {
    using Interface = Interface_;
    static constexpr auto kMember = kMember_;
};

template <class Interface, auto... kMembers>
using MethodsOf = std::tuple<Method<Interface, kMembers>...>;

using Methods = decltype(std::tuple_cat(
    MethodsOf<DocumentEditor, &DocumentEditor::Selection, &DocumentEditor::UndoRecord,
              &DocumentEditor::Bookmarks, &DocumentEditor::Fields, &DocumentEditor::MailMerge,
              &DocumentEditor::Tables, &DocumentEditor::Saved, &DocumentEditor::SetSaved,
              &DocumentEditor::Undo, &DocumentEditor::setProtection, &DocumentEditor::takeFile,
              &DocumentEditor::namesOverTables, &DocumentEditor::beginEditing, &DocumentEditor::endEditing,
              &DocumentEditor::close>(),
    MethodsOf<word::Bookmark, &word::Bookmark::Name, &word::Bookmark::Range, &word::Bookmark::Start,
              &word::Bookmark::SetStart, &word::Bookmark::End, &word::Bookmark::SetEnd,
              &word::Bookmark::moveStart, &word::Bookmark::moveEnd, &word::Bookmark::Select>(),
    MethodsOf<word::Bookmarks, &word::Bookmarks::Count, kItemByNumber, kItemByName, &word::Bookmarks::Exists,
              &word::Bookmarks::Add, &word::Bookmarks::firstFreeCounter>(),
    MethodsOf<word::Cell, &word::Cell::Range, &word::Cell::ColumnIndex, &word::Cell::RowIndex,
              &word::Cell::Select>(),
    MethodsOf<word::Cells, &word::Cells::Count, &word::Cells::Item>(),
    MethodsOf<word::Columns, &word::Columns::Count>(),
    MethodsOf<word::Field, &word::Field::Code, &word::Field::isInCode, &word::Field::Type,
              &word::Field::Select, &word::Field::Delete>(),
    MethodsOf<word::Fields, &word::Fields::Count, &word::Fields::Item>(),
    MethodsOf<word::Font, &word::Font::SetSize>(),
    MethodsOf<word::InlineShapes, &word::InlineShapes::Count, &word::InlineShapes::AddPicture>(),
    MethodsOf<word::MailMerge, &word::MailMerge::Fields>(),
    MethodsOf<word::Range, &word::Range::Start, &word::Range::End, &word::Range::isEmpty,
              &word::Range::compare, &word::Range::storyName, &word::Range::Text, &word::Range::SetText,
              &word::Range::Bookmarks, &word::Range::Cells, &word::Range::Fields, &word::Range::InlineShapes,
              &word::Range::Tables, &word::Range::Previous, &word::Range::Select>(),
    MethodsOf<word::Row, &word::Row::Cells>(),
    MethodsOf<word::Rows, &word::Rows::Count, &word::Rows::Item, &word::Rows::Add>(),
    MethodsOf<word::Selection, &word::Selection::Range, &word::Selection::SetText, &word::Selection::TypeText,
              &word::Selection::TypeParagraph, &word::Selection::Collapse, &word::Selection::EndKey,
              &word::Selection::Font, &word::Selection::Bookmarks, &word::Selection::Fields,
              &word::Selection::InlineShapes, &word::Selection::ShapeRange, &word::Selection::Tables>(),
    MethodsOf<word::ShapeRange, &word::ShapeRange::Count>(),
    MethodsOf<word::Table, &word::Table::Range, &word::Table::Rows, &word::Table::Columns,
              &word::Table::Uniform, &word::Table::Select, &word::Table::Delete>(),
    MethodsOf<word::Tables, &word::Tables::Count, &word::Tables::Item, &word::Tables::Add>(),
    MethodsOf<word::UndoRecord, &word::UndoRecord::StartCustomRecord, &word::UndoRecord::EndCustomRecord>()));

inline constexpr std::size_t kMethodCount = std::tuple_size_v<Methods>;

/// A request is any number of calls, each a method's number, an object's, the number that the result is to
/// have if it is an object, and the arguments. The last one is answered. In place of a method this number
/// says that the object is no longer needed, and nothing follows it.
inline constexpr std::size_t kRelease = kMethodCount;

/// Methods that return an object or nothing and do not fail while the document is open. They wait for the
/// call that comes next, since most of what a call costs is the way there and back.
using PatientMethods = decltype(std::tuple_cat(
    MethodsOf<DocumentEditor, &DocumentEditor::Selection, &DocumentEditor::UndoRecord,
              &DocumentEditor::Bookmarks, &DocumentEditor::MailMerge, &DocumentEditor::Tables>(),
    MethodsOf<word::Range, &word::Range::Bookmarks, &word::Range::InlineShapes, &word::Range::Tables,
              &word::Range::Select>(),
    MethodsOf<word::Selection, &word::Selection::Range, &word::Selection::Collapse, &word::Selection::Font,
              &word::Selection::Bookmarks, &word::Selection::InlineShapes, &word::Selection::ShapeRange,
              &word::Selection::Tables>()));

template <class Wanted, class List>
inline constexpr bool kIsIn = false;
template <class Wanted, class... Listed>
inline constexpr bool kIsIn<Wanted, std::tuple<Listed...>> = (std::is_same_v<Wanted, Listed> || ...);

/// Returns the number of a method of the list.
template <class Wanted>
consteval std::size_t numberOfMethod() {
    return []<std::size_t... kNumbers>(std::index_sequence<kNumbers...>) {
        std::size_t found = kMethodCount;
        ((std::is_same_v<Wanted, std::tuple_element_t<kNumbers, Methods>> ? void(found = kNumbers) : void()),
         ...);
        return found;
    }
    (std::make_index_sequence<kMethodCount>());
}

}  // namespace mergeloom::libreoffice
