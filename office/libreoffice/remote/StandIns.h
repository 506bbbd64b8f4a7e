#pragma once

#include "office/libreoffice/remote/DocumentLine.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>

/// Implementations of Word's object model that forward each member to the same member of an object inside
/// LibreOffice's process.
namespace mergeloom::libreoffice {

/// Stands for an object inside LibreOffice's process and releases it at the end.
template <class Interface>
class StandIn : public Interface {
  public:
    StandIn(DocumentLinePtr line, std::int64_t number) : line_(std::move(line)), number_(number) {}
    ~StandIn() override { line_->release(number_); }

  protected:
    template <auto kMember, class... Arguments>
    auto call(const Arguments&... arguments) {
        return line_->template call<Interface, kMember>(number_, arguments...);
    }
    [[nodiscard]] DocumentLine& line() { return *line_; }

  private:
    DocumentLinePtr line_;
    std::int64_t number_;
};

template <class Interface>
class StandInCount : public StandIn<Interface> {
  public:
    using StandIn<Interface>::StandIn;
    int Count() override { return this->template call<&Interface::Count>(); }
};

/// A collection with numbered items.
template <class Interface, class Item_>
class StandInItems : public StandInCount<Interface> {
  public:
    using StandInCount<Interface>::StandInCount;
    Item_ Item(int number) override { return this->template call<&Interface::Item>(number); }
};

class RemoteBookmark final : public StandIn<word::Bookmark> {
  public:
    using StandIn::StandIn;
    std::string Name() override { return call<&word::Bookmark::Name>(); }
    word::RangePtr Range() override { return call<&word::Bookmark::Range>(); }
    CharacterPosition Start() override { return call<&word::Bookmark::Start>(); }
    void SetStart(CharacterPosition start) override { call<&word::Bookmark::SetStart>(start); }
    CharacterPosition End() override { return call<&word::Bookmark::End>(); }
    void SetEnd(CharacterPosition end) override { call<&word::Bookmark::SetEnd>(end); }
    void moveStart(CharacterCount count) override { call<&word::Bookmark::moveStart>(count); }
    void moveEnd(CharacterCount count) override { call<&word::Bookmark::moveEnd>(count); }
    void Select() override { call<&word::Bookmark::Select>(); }
};

class RemoteBookmarks final : public StandInCount<word::Bookmarks> {
  public:
    using StandInCount::StandInCount;
    word::BookmarkPtr Item(int number) override { return call<kItemByNumber>(number); }
    word::BookmarkPtr Item(const std::string& name) override { return call<kItemByName>(name); }
    bool Exists(const std::string& name) override { return call<&word::Bookmarks::Exists>(name); }
    word::BookmarkPtr Add(const std::string& name, word::Range& range) override {
        return call<&word::Bookmarks::Add>(name, range);
    }
    std::int64_t firstFreeCounter(const std::string& stem) override {
        return call<&word::Bookmarks::firstFreeCounter>(stem);
    }
};

class RemoteCell final : public StandIn<word::Cell> {
  public:
    using StandIn::StandIn;
    word::RangePtr Range() override { return call<&word::Cell::Range>(); }
    int ColumnIndex() override { return call<&word::Cell::ColumnIndex>(); }
    int RowIndex() override { return call<&word::Cell::RowIndex>(); }
    void Select() override { call<&word::Cell::Select>(); }
};

class RemoteField final : public StandIn<word::Field> {
  public:
    using StandIn::StandIn;
    word::RangePtr Code() override { return call<&word::Field::Code>(); }
    bool isInCode() override { return call<&word::Field::isInCode>(); }
    word::WdFieldType Type() override { return call<&word::Field::Type>(); }
    void Select() override { call<&word::Field::Select>(); }
    void Delete() override { call<&word::Field::Delete>(); }
};

class RemoteFont final : public StandIn<word::Font> {
  public:
    using StandIn::StandIn;
    void SetSize(double points) override { call<&word::Font::SetSize>(points); }
};

class RemoteInlineShapes final : public StandInCount<word::InlineShapes> {
  public:
    using StandInCount::StandInCount;
    /// Sends the content of the file along, since only this process has the file store.
    void AddPicture(const std::string& fileName) override {
        line().callEditor<&DocumentEditor::takeFile>(fileName, line().files().read(fileName));
        call<&word::InlineShapes::AddPicture>(fileName);
    }
};

class RemoteMailMerge final : public StandIn<word::MailMerge> {
  public:
    using StandIn::StandIn;
    word::FieldsPtr Fields() override { return call<&word::MailMerge::Fields>(); }
};

class RemoteRange final : public StandIn<word::Range> {
  public:
    RemoteRange(const DocumentLinePtr& line, std::int64_t number) : StandIn(line, number) {
        line->link(*this, number);
    }
    ~RemoteRange() override { line().unlink(*this); }
    CharacterPosition Start() override { return call<&word::Range::Start>(); }
    CharacterPosition End() override { return call<&word::Range::End>(); }
    bool isEmpty() override { return call<&word::Range::isEmpty>(); }
    std::strong_ordering compare(word::RangeEnd mine, word::Range& other, word::RangeEnd others) override {
        return call<&word::Range::compare>(mine, other, others);
    }
    std::string storyName() override { return call<&word::Range::storyName>(); }
    std::string Text() override { return call<&word::Range::Text>(); }
    void SetText(const std::string& text) override { call<&word::Range::SetText>(text); }
    word::BookmarksPtr Bookmarks() override { return call<&word::Range::Bookmarks>(); }
    word::CellsPtr Cells() override { return call<&word::Range::Cells>(); }
    word::FieldsPtr Fields() override { return call<&word::Range::Fields>(); }
    word::InlineShapesPtr InlineShapes() override { return call<&word::Range::InlineShapes>(); }
    word::TablesPtr Tables() override { return call<&word::Range::Tables>(); }
    word::RangePtr Previous(word::WdUnits unit, int count) override {
        return call<&word::Range::Previous>(unit, count);
    }
    void Select() override { call<&word::Range::Select>(); }
};

class RemoteRow final : public StandIn<word::Row> {
  public:
    using StandIn::StandIn;
    word::CellsPtr Cells() override { return call<&word::Row::Cells>(); }
};

class RemoteRows final : public StandInItems<word::Rows, word::RowPtr> {
  public:
    using StandInItems::StandInItems;
    word::RowPtr Add() override { return call<&word::Rows::Add>(); }
};

class RemoteSelection final : public StandIn<word::Selection> {
  public:
    using StandIn::StandIn;
    word::RangePtr Range() override { return call<&word::Selection::Range>(); }
    void SetText(const std::string& text) override { call<&word::Selection::SetText>(text); }
    void TypeText(const std::string& text) override { call<&word::Selection::TypeText>(text); }
    void TypeParagraph() override { call<&word::Selection::TypeParagraph>(); }
    void Collapse(word::WdCollapseDirection direction) override {
        call<&word::Selection::Collapse>(direction);
    }
    void EndKey(word::WdUnits unit) override { call<&word::Selection::EndKey>(unit); }
    word::FontPtr Font() override { return call<&word::Selection::Font>(); }
    word::BookmarksPtr Bookmarks() override { return call<&word::Selection::Bookmarks>(); }
    word::FieldsPtr Fields() override { return call<&word::Selection::Fields>(); }
    word::InlineShapesPtr InlineShapes() override { return call<&word::Selection::InlineShapes>(); }
    word::ShapeRangePtr ShapeRange() override { return call<&word::Selection::ShapeRange>(); }
    word::TablesPtr Tables() override { return call<&word::Selection::Tables>(); }
};

class RemoteTable final : public StandIn<word::Table> {
  public:
    using StandIn::StandIn;
    word::RangePtr Range() override { return call<&word::Table::Range>(); }
    word::RowsPtr Rows() override { return call<&word::Table::Rows>(); }
    word::ColumnsPtr Columns() override { return call<&word::Table::Columns>(); }
    bool Uniform() override { return call<&word::Table::Uniform>(); }
    void Select() override { call<&word::Table::Select>(); }
    void Delete() override { call<&word::Table::Delete>(); }
};

class RemoteTables final : public StandInItems<word::Tables, word::TablePtr> {
  public:
    using StandInItems::StandInItems;
    word::TablePtr Add(word::Range& range, int rows, int columns) override {
        return call<&word::Tables::Add>(range, rows, columns);
    }
};

class RemoteUndoRecord final : public StandIn<word::UndoRecord> {
  public:
    using StandIn::StandIn;
    void StartCustomRecord(const std::string& name) override {
        call<&word::UndoRecord::StartCustomRecord>(name);
    }
    bool EndCustomRecord() override { return call<&word::UndoRecord::EndCustomRecord>(); }
};

/// Lists the implementations of all interfaces that a call can return.
using StandIns =
    std::tuple<RemoteBookmark, RemoteBookmarks, RemoteCell, StandInItems<word::Cells, word::CellPtr>,
               StandInCount<word::Columns>, RemoteField, StandInItems<word::Fields, word::FieldPtr>,
               RemoteFont, RemoteInlineShapes, RemoteMailMerge, RemoteRange, RemoteRow, RemoteRows,
               RemoteSelection, StandInCount<word::ShapeRange>, RemoteTable, RemoteTables, RemoteUndoRecord>;

/// Finds the first class of a list that implements an interface.
template <class Interface, class List>
struct Implementing;
template <class Interface, class First, class... Others>
struct Implementing<Interface, std::tuple<First, Others...>>
    : std::conditional_t<std::is_base_of_v<Interface, First>, std::type_identity<First>,
                         Implementing<Interface, std::tuple<Others...>>> {};

template <class Interface>
std::shared_ptr<Interface> standIn(const DocumentLinePtr& line, std::int64_t number) {
    return std::make_shared<typename Implementing<Interface, StandIns>::type>(line, number);
}

}  // namespace mergeloom::libreoffice
