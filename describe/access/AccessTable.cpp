#include "describe/access/AccessTable.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "describe/access/FormControls.h"
#include "describe/access/LongValue.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace mergeloom::describe::access {

namespace {

constexpr int kBigInteger = 0x13;
constexpr int kExtendedDate = 0x14;
constexpr unsigned char kPrimaryKey = 1;
constexpr int kDecimalsOfMoney = 2;
constexpr int kMaxDecimals = 28;

/// The offset of the scale in the definition of a column of decimal numbers.
constexpr std::size_t kScaleOffset = 12;

/// The offset of the flags for calculated columns in the definition of a column, since Access 2010.
constexpr std::size_t kFurtherFlagsOffset = 16;
constexpr unsigned char kIsCalculated = 0xC0;

/// The limit for the total size of a table's texts, as a multiple of the file's size. It is exceeded only if
/// values of a damaged file share their bytes.
constexpr std::size_t kMaxTextsPerFile = 4;

/// The offset of the number of the table's page in a page of rows.
constexpr int kOwnerOffset = 4;

/// The flags in the offset of a row. In the place of a moved row is a pointer to it: the row's number and the
/// page.
constexpr int kIsDeletedRow = 0x8000;
constexpr int kIsPointer = 0x4000;
constexpr int kOffsetMask = 0x1FFF;
constexpr std::size_t kPointerSize = 4;
constexpr int kMaxSteps = 4;

struct FieldType {
    int stored;
    ColumnType type;
    std::size_t size;  ///< in bytes; 0 if it varies
};

constexpr std::array<FieldType, 14> kFieldTypes{{
    {MDB_BOOL, ColumnType::Boolean, 0},
    {MDB_BYTE, ColumnType::Integer, 1},
    {MDB_INT, ColumnType::Integer, 2},
    {MDB_LONGINT, ColumnType::Integer, 4},
    {MDB_MONEY, ColumnType::Decimal, 8},
    {MDB_FLOAT, ColumnType::Real, 4},
    {MDB_DOUBLE, ColumnType::Real, 8},
    {MDB_DATETIME, ColumnType::DateAndTime, 8},
    {MDB_BINARY, ColumnType::Bytes, 0},
    {MDB_TEXT, ColumnType::Text, 0},
    {MDB_OLE, ColumnType::Bytes, 0},
    {MDB_MEMO, ColumnType::Text, 0},
    {MDB_REPID, ColumnType::Text, 16},
    {MDB_NUMERIC, ColumnType::Decimal, 17},
}};

const FieldType* fieldType(int stored) {
    const auto* const found = std::ranges::find(kFieldTypes, stored, &FieldType::stored);
    return found == kFieldTypes.end() ? nullptr : found;
}

std::string propertyOf(const MdbColumn& column, const char* name) {
    const char* const text = column.props == nullptr ? nullptr : mdb_col_get_prop(&column, name);
    return text == nullptr ? std::string() : text;
}

int numberOf(const MdbColumn& column, const char* name, int otherwise) {
    const std::string property = propertyOf(column, name);
    int number = otherwise;
    std::from_chars(property.data(), property.data() + property.size(), number);
    return number;
}

ListSource listOf(const MdbColumn& column) {
    return listOfType(
        propertyOf(column, "RowSourceType"),
        {propertyOf(column, "RowSource"), numberOf(column, "BoundColumn", 1),
         propertyOf(column, "ColumnWidths"), ListSource::Kind::Rows, numberOf(column, "ColumnCount", 1)});
}

/// Returns the digits after the point that the user has set.
std::optional<int> chosenDecimals(const MdbColumn& column) {
    const int decimals = numberOf(column, "DecimalPlaces", -1);
    return decimals >= 0 && decimals <= kMaxDecimals ? std::optional(decimals) : std::nullopt;
}

Column columnOf(const MdbColumn& field, ColumnType type, int scale) {
    Column column{field.name, propertyOf(field, "Caption"), type};
    column.format = propertyOf(field, "Format");
    // This format, which Access sets itself, shows a text as it is.
    if (type == ColumnType::Text && column.format == "@") column.format.clear();
    column.formatDecimals = chosenDecimals(field);
    if (type == ColumnType::Decimal)
        column.decimals =
            column.formatDecimals.value_or(field.col_type == MDB_MONEY ? kDecimalsOfMoney : scale);
    column.display = controlTypeOf(numberOf(field, "DisplayControl", 0));
    const bool isList = column.display == ControlType::Combobox || column.display == ControlType::Listbox;
    if (isList) column.list = listOf(field);
    return column;
}

/// Returns a value that is a binary number, or none for one of another type.
std::optional<Value> numberOf(int stored, Bytes bytes) {
    Value value;
    switch (stored) {
        case MDB_BYTE:
            value.kind = Value::Kind::Integer;
            value.integer = bytes[0];
            return value;
        case MDB_INT:
        case MDB_LONGINT:
            value.kind = Value::Kind::Integer;
            value.integer = signedOf(bytes);
            return value;
        case MDB_FLOAT:
            value.kind = Value::Kind::Real;
            value.real = singleOf(bytes);
            return value;
        case MDB_DOUBLE:
            value.kind = Value::Kind::Real;
            value.real = doubleOf(bytes);
            return value;
        default:
            return std::nullopt;
    }
}

std::string reasonNotRead(int stored) {
    switch (stored) {
        case kBigInteger:
            return "big integers cannot be read.";
        case kExtendedDate:
            return "extended dates cannot be read.";
        case MDB_COMPLEX:
            return "attachments and columns of several values cannot be read.";
        default:
            return "its type is unknown.";
    }
}

}  // namespace

AccessTable::AccessTable(const AccessFile& file, const std::string& name)
    : file_(file), table_(mdb_read_table(file.tableNamed(name)), mdb_free_tabledef) {
    if (table_ == nullptr || mdb_read_columns(table_.get()) == nullptr) raiseDamaged();
    // Continues after the columns in the page that was read last, and always returns null.
    mdb_read_indices(table_.get());
    std::map<int, ColumnDetails> details = readDetails();
    const std::span<MdbColumn*> fields = itemsOf<MdbColumn>(table_->columns);
    for (std::size_t number = 0; number < fields.size(); ++number) {
        const MdbColumn* const field = fields[number];
        const FieldType* const type = fieldType(field->col_type);
        const auto [isCalculated, scale] = details[field->col_num];
        if (isCalculated) {
            unreadable_.emplace_back(field->name, "calculated columns cannot be read.");
        } else if (type == nullptr) {
            unreadable_.emplace_back(field->name, reasonNotRead(field->col_type));
        } else {
            readable_.push_back({number, field->col_type, scale});
            columns_.push_back(columnOf(*field, type->type, scale));
        }
    }
    fields_.resize(fields.size());
}

std::map<int, ColumnDetails> AccessTable::readDetails() const {
    std::map<int, ColumnDetails> details;
    MdbHandle* const mdb = file_.handle();
    const MdbFormatConstants& format = *mdb->fmt;
    const bool hasCalculated = mdb->f->jet_version >= MDB_VER_ACCDB_2010;
    const std::vector<unsigned char> definition = file_.definitionAt(table_->entry->table_pg);
    const std::size_t first =
        format.tab_cols_start_offset + std::size_t{table_->num_real_idxs} * format.tab_ridx_entry_size;
    const std::size_t size = format.tab_col_entry_size;
    if (first + table_->num_cols * size > definition.size()) raiseDamaged();
    for (std::size_t number = 0; number < table_->num_cols; ++number) {
        const Bytes entry(definition.data() + first + number * size, size);
        ColumnDetails& column =
            details[static_cast<int>(unsignedOf(entry.subspan(format.col_num_offset, 2)))];
        column.isCalculated = hasCalculated && (entry[kFurtherFlagsOffset] & kIsCalculated) != 0;
        if (entry[0] == MDB_NUMERIC) column.scale = std::min<int>(entry[kScaleOffset], kMaxDecimals);
    }
    return details;
}

std::vector<std::vector<std::string>> AccessTable::keys() const {
    std::vector<std::vector<std::string>> keys;
    const std::span<MdbColumn*> fields = itemsOf<MdbColumn>(table_->columns);
    for (const MdbIndex* const index : itemsOf<MdbIndex>(table_->indices)) {
        const bool isPrimary = index->index_type == kPrimaryKey;
        if ((!isPrimary && (index->flags & MDB_IDX_UNIQUE) == 0) || index->num_keys > MDB_MAX_IDX_COLS)
            continue;
        std::vector<std::string> key;
        for (const short number : std::span(index->key_col_num).first(index->num_keys)) {
            if (number < 1 || static_cast<std::size_t>(number) > fields.size()) raiseDamaged();
            const std::string name = fields[static_cast<std::size_t>(number) - 1]->name;
            if (std::ranges::find(columns_, name, &Column::name) != columns_.end()) key.push_back(name);
        }
        if (key.size() != index->num_keys || key.empty()) continue;
        keys.insert(isPrimary ? keys.begin() : keys.end(), std::move(key));
    }
    return keys;
}

std::size_t AccessTable::positionOf(const std::string& column) const {
    const auto found = std::ranges::find_if(
        columns_, [&](const Column& candidate) { return equalsIgnoringAsciiCase(candidate.name, column); });
    if (found == columns_.end()) raiseDamaged();
    return static_cast<std::size_t>(found - columns_.begin());
}

bool AccessTable::next() {
    do {
        if (rowOnPage_ == rowsOnPage_ && !nextPage()) return false;
    } while (!readRow(rowOnPage_++));
    return true;
}

/// Moves to the next page with rows. Returns false after the last one. The library's own routine treats a
/// missing page as the end.
bool AccessTable::nextPage() {
    MdbHandle* const mdb = file_.handle();
    rowOnPage_ = 0;
    rowsOnPage_ = 0;
    while (rowsOnPage_ == 0) {
        const long next = mdb_map_find_next(mdb, table_->usage_map, static_cast<unsigned>(table_->map_sz),
                                            static_cast<guint32>(page_));
        if (next == 0) return false;
        if (next <= page_ || mdb_read_pg(mdb, static_cast<unsigned long>(next)) == 0) raiseDamaged();
        page_ = next;
        const bool isOfTable =
            mdb->pg_buf[0] == MDB_PAGE_DATA &&
            static_cast<unsigned long>(mdb_get_int32(mdb->pg_buf, kOwnerOffset)) == table_->entry->table_pg;
        if (isOfTable) rowsOnPage_ = mdb_get_int16(mdb->pg_buf, mdb->fmt->row_count_offset);
    }
    return true;
}

/// Reads a row of the current page. Returns false for a deleted row and for one that a pointer on another
/// page refers to. The library's own routine does not distinguish the two.
bool AccessTable::readRow(int row) {
    MdbHandle* const mdb = file_.handle();
    long page = page_;
    for (int steps = 0; steps < kMaxSteps; ++steps) {
        int start = 0;
        std::size_t size = 0;
        if (mdb_read_pg(mdb, static_cast<unsigned long>(page)) == 0 ||
            mdb_find_row(mdb, row, &start, &size) != 0)
            raiseDamaged();
        if (steps == 0 && (start & kIsDeletedRow) != 0) return false;
        const int offset = start & kOffsetMask;
        const bool isPointer = (start & kIsPointer) != 0;
        if (offset + static_cast<long>(size) > mdb->fmt->pg_size || (isPointer && size < kPointerSize))
            raiseDamaged();
        if (!isPointer) {
            splitRow(offset, size);
            return true;
        }
        row = mdb->pg_buf[offset];
        page = static_cast<long>(unsignedOf({mdb->pg_buf + offset + 1, kPointerSize - 1}));
    }
    raiseDamaged();
}

void AccessTable::splitRow(int start, std::size_t size) {
    if (size == 0 || mdb_crack_row(table_.get(), start, size, fields_.data()) < 0) raiseDamaged();
}

Value AccessTable::value(std::size_t column, std::string& text) {
    const auto [number, stored, scale] = readable_[column];
    const MdbField& field = fields_[number];
    Value value;
    if (stored == MDB_BOOL) {
        // The value of a boolean is its bit in the null mask.
        value.kind = Value::Kind::Integer;
        value.integer = field.is_null == 0 ? 1 : 0;
        return value;
    }
    if (field.is_null != 0 || field.siz == 0) return value;
    const Bytes bytes = bytesOf(field);
    const std::size_t size = fieldType(stored)->size;
    if (size != 0 && bytes.size() != size) raiseDamaged();
    value = valueOf(stored, scale, bytes, text);
    textSize_ += value.text.size();
    if (textSize_ > kMaxTextsPerFile * file_.size()) raiseDamaged();
    return value;
}

Bytes AccessTable::bytesOf(const MdbField& field) const {
    const auto pageSize = static_cast<long>(file_.handle()->fmt->pg_size);
    const long start = field.start;
    const long size = field.siz;
    if (start < 0 || size < 0 || start + size > pageSize) raiseDamaged();
    return {file_.handle()->pg_buf + start, static_cast<std::size_t>(size)};
}

Value AccessTable::valueOf(int stored, int scale, Bytes bytes, std::string& text) {
    if (const std::optional<Value> number = numberOf(stored, bytes)) return *number;
    text = textOf(stored, scale, bytes);
    Value value;
    value.kind = fieldType(stored)->type == ColumnType::Bytes ? Value::Kind::Bytes : Value::Kind::Text;
    value.text = text;
    return value;
}

/// Returns a value as a text, or its bytes.
std::string AccessTable::textOf(int stored, int scale, Bytes bytes) {
    switch (stored) {
        case MDB_MONEY:
            return moneyOf(bytes);
        case MDB_NUMERIC:
            return decimalOf(bytes, scale);
        case MDB_DATETIME: {
            std::string date = dateOf(doubleOf(bytes));
            if (date.empty()) raiseDamaged();
            return date;
        }
        case MDB_REPID:
            return replicationIdOf(bytes);
        case MDB_TEXT:
            return textOf(bytes);
        case MDB_MEMO:
            return textOf(longValueOf(file_, bytes));
        case MDB_OLE: {
            const std::vector<unsigned char> object = longValueOf(file_, bytes);
            return {object.begin(), object.end()};
        }
        default:
            return {bytes.begin(), bytes.end()};
    }
}

/// Returns a text of the database's code page (Jet 3) or of Unicode as UTF-8.
std::string AccessTable::textOf(Bytes bytes) const {
    if (!file_.isJet3()) return access::textOf(bytes);
    constexpr std::size_t kMaxUtf8Size = 4;
    std::string text(bytes.size() * kMaxUtf8Size + 1, '\0');
    const auto* const source = reinterpret_cast<const char*>(bytes.data());
    const int size = mdb_unicode2ascii(file_.handle(), source, bytes.size(), text.data(), text.size());
    text.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    return text;
}

}  // namespace mergeloom::describe::access
