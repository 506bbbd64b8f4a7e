#include "describe/Database.h"

#include "base/Text.h"
#include "describe/StoredForm.h"

#include <algorithm>

namespace mergeloom::describe {

namespace {

template <typename Item>
const Item* itemNamed(const std::vector<Item>& items, const std::string& name) {
    const auto exact = std::ranges::find(items, name, &Item::name);
    if (exact != items.end()) return &*exact;
    const auto found =
        std::ranges::find_if(items, [&](const Item& item) { return equalsIgnoringCase(item.name, name); });
    return found == items.end() ? nullptr : &*found;
}

}  // namespace

const Table* tableNamed(const std::vector<Table>& tables, const std::string& name) {
    return itemNamed(tables, name);
}

const Column* columnNamed(const Table& table, const std::string& name) {
    return itemNamed(table.columns, name);
}

const std::vector<StoredForm>& Database::forms() const {
    static const std::vector<StoredForm> kNone;
    return kNone;
}

const std::vector<std::string>& Database::remarks() const {
    static const std::vector<std::string> kNone;
    return kNone;
}

bool Database::canSelect(const std::string& /*table*/) const {
    return true;
}

}  // namespace mergeloom::describe
