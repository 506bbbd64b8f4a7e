#pragma once

#include <functional>
#include <string>
#include <vector>

namespace mergeloom {

/// The list in which a user chooses the columns of a table and their order: the logic of the dialog without
/// its window. A window shows the list, calls these members and stays open while `Visible` returns true.
class FieldSelection {
  public:
    struct Item {
        std::string text;
        int itemData = 0;  ///< the number of the field's tree node
        bool selected = true;
    };

    /// Sets the text of the object whose fields these are.
    void SetObject(const std::string& text) { object_ = text; }
    [[nodiscard]] const std::string& object() const { return object_; }
    /// Appends a field, selected. The first one becomes the current one.
    void AddItem(const std::string& text, int itemData);
    [[nodiscard]] const std::vector<Item>& items() const { return items_; }
    [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] int SelCount() const;
    void SetSelected(int index, bool selected);
    void SelectAll(bool selected);

    /// The index of the current item, -1 in an empty list.
    [[nodiscard]] int ListIndex() const { return listIndex_; }
    /// Ignores an index without an item.
    void SetListIndex(int index);
    /// Moves the current item one place up or down, with all that belongs to it. Nothing is moved beyond the
    /// list's ends, nor while no item is selected.
    void MoveListItem(bool vfUp);

    /// Calls the handler of the insert button, which hides the window.
    void Insert() {
        isInserted_ = true;
        onInsert_();
    }
    /// Returns true if the insert button was pressed.
    [[nodiscard]] bool isInserted() const { return isInserted_; }
    void SetInsertHandler(std::function<void()> onInsert) { onInsert_ = std::move(onInsert); }
    [[nodiscard]] bool Visible() const { return visible_; }
    /// A window that is hidden without the insert button was closed, and nothing is chosen.
    void SetVisible(bool visible) { visible_ = visible; }

  private:
    [[nodiscard]] bool hasItem(int index) const { return index >= 0 && index < ListCount(); }

    std::string object_;
    std::vector<Item> items_;
    int listIndex_ = -1;
    bool visible_ = false;
    bool isInserted_ = false;
    std::function<void()> onInsert_ = [] {};
};

/// The window that shows the list of fields.
class FieldDialog {
  public:
    virtual ~FieldDialog() = default;

    /// Shows the list until the user inserts what is selected or closes the window.
    virtual void Show(FieldSelection& fields) = 0;
};

}  // namespace mergeloom
