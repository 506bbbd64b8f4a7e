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

/// Lists the methods that can be called across the processes. Both sides are built from this list. The number
/// of a method is its index.
namespace mergeloom::libreoffice {

/// Names the overloads of Bookmarks::Item.
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

/// Replaces a method's number to release the object whose number follows. A request is a sequence of calls:
/// the number of the method, of the object and of the result if it is an object, then the arguments. The
/// answer is that of the last call.
inline constexpr std::size_t kRelease = kMethodCount;

/// Lists the methods that return an object or nothing and cannot fail while the document is open. Their calls
/// are sent with the next one, since most of the cost of a call is the round trip.
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

/// Returns the number of a method in the list.
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
