#include "describe/RecordReader.h"

#include "base/AutomationError.h"

#include <utility>

namespace mergeloom::describe {

namespace {

RowQuery queryFor(const ObjectDesign& object, const std::optional<RowFilter>& filter,
                  const std::vector<Join>& joins) {
    RowQuery query{object.table};
    for (const ControlDesign& control : object.controls) {
        query.columns.push_back(control.column.name);
        if (control.lookup) query.lookups.push_back(*control.lookup);
    }
    query.joins = joins;
    query.key = object.key;
    query.filter = filter;
    return query;
}

std::size_t sizeOfKeys(const std::vector<Join>& joins) {
    std::size_t size = 0;
    for (const Join& join : joins)
        size += join.key.size();
    return size;
}

}  // namespace

RecordReader::RecordReader(Database& database, const ObjectDesign& object,
                           const std::optional<RowFilter>& filter)
    : RecordReader(database, object, filter, {}) {}

RecordReader::RecordReader(Database& database, const ObjectDesign& object,
                           const std::optional<RowFilter>& filter, const std::vector<Join>& joins)
    : object_(object), outerKeys_(sizeOfKeys(joins)) {
    const RowQuery query = queryFor(object, filter, joins);
    std::size_t position = object.controls.size();
    for (const ControlDesign& control : object.controls)
        shown_.push_back(control.lookup ? std::optional(position++) : std::nullopt);
    keys_ = position;
    cursor_ = database.select(query);
    for (const SubformDesign& subform : object.subforms) {
        std::vector<Join> path{
            {subform.link.columns, object.table, subform.link.referredColumns, object.key}};
        path.insert(path.end(), joins.begin(), joins.end());
        // The constructor is private, so make_unique cannot call it.
        subforms_.emplace_back(new RecordReader(database, subform.form, filter, path));
    }
}

Value RecordReader::shownValue(std::size_t control) const {
    return shown_[control] ? cursor_->value(*shown_[control]) : value(control);
}

bool RecordReader::next() {
    if (step()) return true;
    refuseLeftOver();
    return false;
}

bool RecordReader::nextOf(const RecordReader& around) {
    if (!isPending_ && !step()) return false;
    isPending_ = !belongsTo(around);
    return !isPending_;
}

bool RecordReader::step() {
    isAtEnd_ = isAtEnd_ || !cursor_->next();
    return !isAtEnd_;
}

bool RecordReader::belongsTo(const RecordReader& around) const {
    for (std::size_t part = 0; part < outerKeys_; ++part) {
        if (cursor_->value(keys_ + part) != around.cursor_->value(around.keys_ + part)) return false;
    }
    return true;
}

void RecordReader::refuseLeftOver() {
    for (const std::unique_ptr<RecordReader>& subform : subforms_) {
        if (subform->isPending_ || subform->step()) {
            throw AutomationError(kFileCouldNotBeRead, "The records of '" + subform->object_.table +
                                                           "' changed while they were read. Try again.");
        }
        subform->refuseLeftOver();
    }
}

}  // namespace mergeloom::describe
