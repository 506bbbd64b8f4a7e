#include "describe/DescribeCommand.h"

#include "base/AutomationError.h"
#include "base/OptionReader.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "describe/ListLookup.h"
#include "describe/ObjectDesign.h"
#include "describe/PictureFolder.h"
#include "describe/RecordReader.h"
#include "describe/RecordWriter.h"
#include "describe/SourceFile.h"
#include "describe/SpoolFile.h"
#include "describe/StructureWriter.h"
#include "describe/XmlStream.h"

#include <algorithm>
#include <map>
#include <memory>
#include <ostream>
#include <utility>

namespace mergeloom::describe {

namespace {

/// The most names that a sentence lists.
constexpr std::size_t kMaxListedNames = 20;

[[noreturn]] void refuseOption(const std::string& reason) {
    throw AutomationError(kOptionNotUnderstood, reason);
}

/// Returns the names for a sentence, the first ones if they are many.
template <typename Items, typename NameOf>
std::string listed(const Items& items, const NameOf& nameOf) {
    std::string names;
    const char* separator = "";
    for (std::size_t number = 0; number < items.size() && number < kMaxListedNames; ++number) {
        names += separator + ("'" + nameOf(items[number]) + "'");
        separator = ", ";
    }
    const std::size_t more = items.size() - std::min(items.size(), kMaxListedNames);
    return more == 0 ? names : names + " and " + std::to_string(more) + " more";
}

ObjectDesign& objectNamed(std::vector<ObjectDesign>& objects, const std::string& name) {
    const auto isNamed = [&](const ObjectDesign& object) {
        return object.name == name || object.fullName() == name;
    };
    const auto found = std::ranges::find_if(objects, isNamed);
    if (found != objects.end()) return *found;
    refuseOption("There is no object '" + name + "'. There are " +
                 listed(objects, [](const ObjectDesign& object) { return object.fullName(); }) + ".");
}

/// Returns the objects of a database. Raises kFileCouldNotBeRead if there are none.
std::vector<ObjectDesign> objectsOf(const Database& database, const std::string& source) {
    std::vector<ObjectDesign> objects = designObjects(database);
    if (objects.empty())
        throw AutomationError(kFileCouldNotBeRead, "The database '" + source + "' has no tables.");
    return objects;
}

/// Returns the objects with these names, in the order of the names.
std::vector<ObjectDesign> chosenObjects(std::vector<ObjectDesign> objects,
                                        const std::vector<std::string>& names) {
    if (names.empty()) return objects;
    std::vector<ObjectDesign> chosen;
    chosen.reserve(names.size());
    for (const std::string& name : names)
        chosen.push_back(objectNamed(objects, name));
    return chosen;
}

/// Replaces the name of the column that a user gave by that of the table.
RowFilter filterOn(const ObjectDesign& object, const Table& table, const RowFilter& filter) {
    if (const Column* const column = columnNamed(table, filter.column)) return {column->name, filter.value};
    refuseOption(object.fullName() + " has no column '" + filter.column + "'. It has " +
                 listed(table.columns, [](const Column& column) { return column.name; }) + ".");
}

/// Removes the controls of columns of bytes that are not pictures.
class PictureColumns {
  public:
    PictureColumns(Database& database, PictureFolder* folder, const DescribeEvents& events)
        : database_(database), folder_(folder), events_(events) {}

    void prepare(ObjectDesign& object) {
        std::erase_if(object.controls, [&](ControlDesign& control) {
            const bool isOfTable = !control.column.name.empty();
            if (control.type != ControlType::BoundObjectFrame || !isOfTable) return false;
            control.image = imageOf(object.table, control.column.name);
            return control.image.empty();
        });
        for (SubformDesign& subform : object.subforms)
            prepare(subform.form);
    }

  private:
    /// Returns the path of a picture of the column, or an empty text if its bytes are no pictures.
    std::string imageOf(const std::string& table, const std::string& column) {
        const auto [found, isNew] = images_.try_emplace({table, column});
        if (isNew) found->second = readImage(table, column);
        return found->second;
    }

    std::string readImage(const std::string& table, const std::string& column) {
        const std::optional<std::string> bytes = database_.sampleOf(table, column);
        const std::string name = "The column '" + column + "' of '" + table + "' is left out: ";
        if (!bytes) {
            events_.remark(name + "its query can be run by Access only.");
            return {};
        }
        if (!isPicture(*bytes)) {
            events_.remark(name + (bytes->empty() ? "it is empty." : "it holds bytes that are no pictures."));
            return {};
        }
        if (folder_ != nullptr) return folder_->add(column, *bytes);
        events_.remark(
            name + "its pictures become files beside the structure document, which needs '--output FILE'.");
        return {};
    }

    Database& database_;
    PictureFolder* folder_;
    const DescribeEvents& events_;
    std::map<std::pair<std::string, std::string>, std::string> images_;
};

/// Writes the element Data with the records of an object.
class DataWriter {
  public:
    DataWriter(XmlStream& xml, Database& database, const ObjectDesign& object, const RecordChoice& choice)
        : xml_(xml), object_(object), choice_(choice), reader_(database, object, filter(database)) {}

    /// Returns the number of records.
    std::int64_t write(RecordWriter writer, const DescribeEvents& events) {
        const std::string data = StructureElementName(StructureElement::Data);
        const std::string records = StructureElementName(StructureElement::Records);
        xml_.markup("  <" + data + "><" + records + ">\n");
        std::int64_t count = 0;
        while (count < choice_.limit && reader_.next()) {
            if (events.isStopped())
                throw AutomationError(kCommandFailed, "It was stopped; no structure document was written.");
            writer.write(reader_);
            events.progress.advance(++count, 0);
        }
        writer.remarkBytes(events.remark);
        xml_.markup("  </" + records + "></" + data + ">\n");
        return count;
    }

  private:
    [[nodiscard]] std::optional<RowFilter> filter(const Database& database) const {
        if (!choice_.filter) return std::nullopt;
        return filterOn(object_, *tableNamed(database.tables(), object_.table), *choice_.filter);
    }

    XmlStream& xml_;
    const ObjectDesign& object_;
    const RecordChoice& choice_;
    RecordReader reader_;
};

/// A run of the command over an open database.
class Description {
  public:
    Description(const DescribeOptions& options, Database& database, PictureFolder* pictures,
                const DescribeEvents& events)
        : options_(options),
          pictures_(pictures),
          events_(events),
          database_(database),
          objects_(chosenObjects(objectsOf(database, options.source), options.objects)) {
        if (options.records.limit > 0 && objects_.size() != 1)
            refuseOption("Option '--records' needs one '--object NAME' whose records are meant.");
        for (const std::string& text : database.remarks())
            events.remark(text);
        PictureColumns columns(database, pictures, events);
        for (ObjectDesign& object : objects_) {
            for (const std::string& text : object.remarks)
                events.remark(text);
            columns.prepare(object);
        }
    }

    void write(ByteSink& sink, const ValueFormat& format) {
        XmlStream xml(sink);
        xml.markup("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Database Name=\"");
        xml.text(databaseNameOf(options_.source)).markup("\">\n");
        writeStructure(xml, objects_);
        if (options_.records.limit > 0) writeRecords(xml, format);
        xml.markup("</Database>\n").flush();
        if (xml.hasReplacements()) events_.remark("Characters that XML cannot hold were replaced by U+FFFD.");
    }

  private:
    void writeRecords(XmlStream& xml, const ValueFormat& format) {
        const ObjectDesign& whole = objects_.front();
        if (!whole.hasTable()) {
            throw AutomationError(kFileCouldNotBeRead, "The records of '" + whole.fullName() +
                                                           "' cannot be read from '" + options_.source +
                                                           "': they are not those of a table.");
        }
        remarkOmissions(whole);
        const ObjectDesign object = selectablePart(whole, database_);
        DataWriter data(xml, database_, object, options_.records);
        const std::int64_t count = data.write(RecordWriter(xml, format, pictures_, object), events_);
        if (count > 0) return;
        const std::string& filter = options_.records.filter ? options_.records.filter->value : std::string();
        if (filter.empty()) return events_.remark(object.fullName() + " has no records.");
        throw AutomationError(kFileCouldNotBeRead, "No record of '" + object.name + "' has the value '" +
                                                       filter + "' in '" + options_.records.filter->column +
                                                       "'.");
    }

    void remarkOmissions(const ObjectDesign& object) {
        const std::string end = " of '" + object.name + "' is not in the records: ";
        for (const ControlDesign& control : object.controls) {
            if (control.column.name.empty() && !control.source.empty())
                events_.remark("The control '" + control.name + "'" + end + "it shows no column of a table.");
        }
        for (const SubformDesign& subform : object.subforms) {
            if (subform.link.columns.empty()) {
                events_.remark("The subform '" + subform.name + "'" + end + "no columns link it to a table.");
            } else if (!database_.canSelect(subform.form.table)) {
                events_.remark("The subform '" + subform.name + "'" + end + "the query '" +
                               subform.form.table + "' can be run by Access only.");
            } else {
                remarkOmissions(subform.form);
            }
        }
    }

    const DescribeOptions& options_;
    PictureFolder* pictures_;
    const DescribeEvents& events_;
    Database& database_;
    std::vector<ObjectDesign> objects_;
};

}  // namespace

DescribeCommand::DescribeCommand(DescribeOptions options, FileStore& files, const ValueFormat& format,
                                 const DescribeEvents& events)
    : options_(std::move(options)), files_(files), format_(format), events_(events) {}

void DescribeCommand::list(std::ostream& stream) {
    const std::unique_ptr<Database> database = openSource(options_.source, events_.askPassword);
    for (const std::string& text : database->remarks())
        events_.remark(text);
    for (const ObjectDesign& object : designObjects(*database))
        stream << object.fullName() << "\n";
}

void DescribeCommand::run(ByteSink& standardOutput) {
    const std::unique_ptr<Database> database = openSource(options_.source, events_.askPassword);
    if (options_.output.empty()) {
        SpoolFile spool;
        Description(options_, *database, nullptr, events_).write(spool, format_);
        return spool.copyTo(standardOutput);
    }
    const std::string path = fullPath(options_.output);
    PictureFolder pictures(files_, path);
    Description description(options_, *database, &pictures, events_);
    files_.save(path, [&](ByteSink& sink) { description.write(sink, format_); });
    pictures.keep();
}

}  // namespace mergeloom::describe
