#include "app/FillCommand.h"

#include "app/DatabaseObjects.h"
#include "app/FileFormats.h"
#include "app/FillDifferences.h"
#include "app/MergeloomErrorCodes.h"
#include "app/modMain.h"
#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "droppers/PlaceDirectory.h"
#include "office/factory/OfficeFactory.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <thread>
#include <utility>

namespace mergeloom {

namespace {

using letters::ControlPath;

/// Thrown to end the second reading early.
struct EnoughRead {};

/// Fewer letters are written before the other threads have read the template.
constexpr std::size_t kMinLettersOfThreads = 200;
/// More could not be kept busy by the one that reads the records.
constexpr std::size_t kMaxThreads = 8;

[[noreturn]] void refuseFill(const std::string& why) {
    throw AutomationError(kNotAvailable, why);
}

std::string counted(std::size_t number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

}  // namespace

bool FillCommand::run(std::ostream& report) {
    checkOptions();
    survey();
    compile();
    checkNames();
    checkDistinct();
    checkTargets();
    const std::vector<std::string> texts =
        fillDifferences(*letters_, seen_, {object_->Text(), unknownFields_, places_.ambiguous});
    noteDifferences(texts);
    if (options_.strictness == Strictness::RefusesDifferences && !texts.empty()) return false;
    write();
    noteRemarks();
    if (stopped_) {
        ports_.messages.show({"Stopped before record " + std::to_string(read_) + ".",
                              MessageIcon::Exclamation, MessageButtons::Ok});
    }
    report << counted(written_, "record") << " filled into " << counted(files_, "file") << ".\n";
    return !stopped_;
}

void FillCommand::noteRemarks() {
    std::vector<std::string> remarks = letters_->remarks();
    if (shared_) {
        const std::vector<std::string> others = shared_->remarks();
        remarks.insert(remarks.end(), others.begin(), others.end());
    }
    if (writers_) {
        const std::vector<std::string> others = writers_->remarks();
        remarks.insert(remarks.end(), others.begin(), others.end());
    }
    // A record may have been filled twice.
    for (const std::string& remark : std::set<std::string>(remarks.begin(), remarks.end()))
        ports_.messages.show({remark, MessageIcon::Exclamation, MessageButtons::Ok});
}

void FillCommand::checkOptions() const {
    const std::string& output = options_.output;
    const std::string refusal = format_->refusal();
    if (!refusal.empty()) refuseFill("The file '" + output + "' cannot be written: " + refusal);
    refuseTemplate();
}

void FillCommand::refuseTemplate() const {
    const std::string start = "The template '" + options_.templateFile + "' cannot be filled: ";
    if (isForeignWordFile(options_.templateFile) && !isWorkbook_)
        refuseFill(start + "save it as docx, docm, dotx or dotm first.");
    if (!isWorkbook_) return;
    if (isForeignExcelFile(options_.templateFile))
        refuseFill(start + "save it as xlsx, xlsm, xltx or xltm first.");
    if (options_.use == letters::LetterUse::OneForAll) {
        refuseFill(
            "Option '--one-document' is for documents. A workbook lists all records in a table of the "
            "object; name a control in '--output' to write one for each record.");
    }
}

void FillCommand::survey() {
    source_ = std::make_unique<MappingSource>(options_.dataFile, ports_.errors,
                                              [this](Record& record) { surveyRecord(record); });
    const std::string& parseError = source_->document().parseError().reason;
    if (!parseError.empty()) refuseFill(parseError);
    if (!source_->firstObject()) refuseFill(GetMappingErrorText(kXmlFileIncorrect));
    try {
        const std::vector<DatabaseObject> objects = objectsOf(*source_);
        object_ =
            options_.object.empty() ? source_->firstObject() : objectNamed(objects, options_.object).node;
    } catch (const MappingRefusal& refusal) {
        refuseFill(refusal.what());
    }
    if (records_ == 0) refuseFill("The structure document '" + options_.dataFile + "' holds no records.");
    if (options_.lastRecord > records_ && options_.lastRecord != FillOptions::kLastOfAll) {
        refuseFill("There is no record " + std::to_string(options_.lastRecord) +
                   ": the structure document holds " + counted(records_, "record") + ".");
    }
    if (options_.firstRecord > records_) {
        refuseFill("There is no record " + std::to_string(options_.firstRecord) +
                   ": the structure document holds " + counted(records_, "record") + ".");
    }
}

void FillCommand::surveyRecord(const Record& record) {
    ++records_;
    seen_.note(record);
    if (!names_.dependOnRecord() || targetRefusal_) return;
    try {
        // Also checks records that are not selected, so that runs of parts refuse the same names.
        const std::string path = names_.pathFor(record, records_);
        fingerprints_.note(path, records_);
        checkTarget(fullPath(path));
    } catch (const AutomationError& error) {
        targetRefusal_ = error;
    }
}

/// Refuses a target that is a folder, the template or the data, or that cannot be written.
void FillCommand::checkTarget(const std::string& path) {
    if (folderExists(path)) refuseFill("The file '" + path + "' cannot be written: a folder has that name.");
    const std::string folder = parentFolder(path);
    if (checkedFolder_ != folder) ports_.files.checkFolder(path);
    checkedFolder_ = folder;
    if (!ports_.files.fileExists(path)) return;
    if (isSameFile(path, options_.templateFile))
        refuseFill("The file '" + path + "' cannot be written: it is the template.");
    if (isSameFile(path, options_.dataFile))
        refuseFill("The file '" + path + "' cannot be written: it holds the data.");
    if (IsFileLocked(path)) {
        throw AutomationError(kFileCouldNotBeSaved,
                              "The file '" + path + "' cannot be saved: it is open elsewhere.");
    }
}

void FillCommand::compile() {
    template_ = openTemplate();
    const std::vector<std::string> bookmarks = template_->bookmarkNames();
    const auto findPicture = [this](const std::string& image) {
        return source_->document().findPicture(image);
    };
    places_ = placeSources(source_->xmlNodes(), *object_, bookmarks, findPicture,
                           isWorkbook_ ? PlaceScheme::RangeNames : PlaceScheme::Bookmarks);
    noteUnknownFields();
    const bool isOne = options_.use == letters::LetterUse::OneForAll;
    if (isOne && names_.dependOnRecord()) {
        refuseFill("Option '--one-document' needs a file name without braces.");
    }
    // If files are named by records, each record has a sheet of its own.
    const std::size_t labels = names_.dependOnRecord() ? 0 : template_->labelsPerSheet(places_);
    isSheet_ = labels > 1 && options_.use == letters::LetterUse::OneEach;
    if (isSheet_ && selectedCount() > labels) use_ = letters::LetterUse::OneForAll;
    letters::LetterSettings settings{.emptyTables = options_.emptyTables,
                                     .use = use_,
                                     .findPicture = findPicture,
                                     .fileName = options_.output};
    format_->applyTo(settings);
    letters_ = template_->compile(places_, settings);
    refuseWithoutPlaces();
    const bool hasFiles = names_.dependOnRecord() || (selectedCount() == 1 && !isSheet_);
    const bool isEach = options_.use == letters::LetterUse::OneEach;
    if (isEach && hasFiles && format_->hasPages()) shareFiles(settings);
    if (isEach && names_.dependOnRecord() && !format_->isConverted()) useThreads(settings);
}

void FillCommand::noteUnknownFields() {
    for (const std::string& field : template_->fieldNames()) {
        const std::string folded = foldCase(field);
        if (!places_.places.contains(folded) && !places_.tables.contains(folded))
            unknownFields_.push_back(field);
    }
}

void FillCommand::refuseWithoutPlaces() const {
    if (!letters_->filledPlaces().empty()) return;
    if (!letters_->refusals().empty()) refuseFill(letters_->refusals().front());
    refuseFill("The template '" + options_.templateFile + "' has no place that a control of " +
               object_->Text() + " fills.");
}

std::unique_ptr<letters::LetterTemplate> FillCommand::openTemplate() const {
    return isWorkbook_ ? openBookTemplate(ports_.files, options_.templateFile)
                       : openLetterTemplate(ports_.files, options_.templateFile);
}

/// Prepares as many threads as there are processors, if there are letters enough for that to pay.
void FillCommand::useThreads(const letters::LetterSettings& settings) {
    const std::size_t processors = std::min<std::size_t>(std::thread::hardware_concurrency(), kMaxThreads);
    if (processors < 2 || selectedCount() < kMinLettersOfThreads) return;
    std::vector<LetterWriters::OwnLetters> letters(processors);
    for (LetterWriters::OwnLetters& own : letters) {
        own.source = openTemplate();
        own.letters = own.source->compile(places_, settings);
    }
    writers_ = std::make_unique<LetterWriters>(
        std::move(letters), [this](const std::string& path, const std::function<void(ByteSink&)>& writer) {
            save(path, writer);
        });
}

/// Prepares the conversion of several records at once, unless they cannot share a document.
void FillCommand::shareFiles(const letters::LetterSettings& settings) try {
    sharedTemplate_ = openLetterTemplate(ports_.files, options_.templateFile);
    letters::LetterSettings shared = settings;
    shared.use = letters::LetterUse::OneForAll;
    shared.marks = letters::RecordMarks::Bookmarks;
    std::unique_ptr<letters::Letters> letters = sharedTemplate_->compile(places_, shared);
    if (!letters->canShareLayout()) return;
    const auto written = [this] {
        ++files_;
        advance();
    };
    shared_ = std::make_unique<SharedFiles>(
        std::move(letters), SharedFiles::Ports{ports_.files, ports_.converter, *format_, written});
} catch (const AutomationError&) {
    // Each record gets a document of its own.
}

void FillCommand::checkNames() const {
    const std::vector<ControlPath> paths = valuePaths(source_->xmlNodes(), *object_);
    for (const std::string& control : names_.controls()) {
        if (std::ranges::find(paths, ControlPath{control}) != paths.end()) continue;
        refuseFill("The file name '" + options_.output + "' names the control {" + control + "}, which " +
                   object_->Text() + " does not have.");
    }
    if (targetRefusal_) throw AutomationError(*targetRefusal_);
    const bool isSingle = names_.dependOnRecord() || options_.use == letters::LetterUse::OneForAll ||
                          letters_->listsRecords() || isSheet_ || selectedCount() == 1;
    if (isSingle) return;
    refuseFill(
        "There are " + std::to_string(selectedCount()) + " records for the one file '" + options_.output +
        "'. Name a control in it, such as letter-{" + paths.front().back() +
        (isWorkbook_ ? "}.xlsx, or choose --record N." : "}.docx, or choose --one-document or --record N."));
}

/// Raises kNotAvailable if two records have the same file. Reads the data again only if two fingerprints are
/// equal.
void FillCommand::checkDistinct() {
    const std::vector<std::size_t> suspects = std::exchange(fingerprints_, {}).suspects();
    if (suspects.empty()) return;
    TakenNames taken;
    std::size_t number = 0;
    StructureDocument document;
    const bool isLoaded = document.Load(options_.dataFile, [&](const Record& record) {
        if (std::ranges::binary_search(suspects, ++number))
            taken.take(names_.pathFor(record, number), number);
    });
    if (!isLoaded) refuseFill(document.parseError().reason);
}

void FillCommand::checkTargets() {
    if (names_.dependOnRecord()) return;
    checkTarget(fullPath(options_.output));
}

void FillCommand::noteDifferences(const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
        ports_.messages.show({text, MessageIcon::Exclamation, MessageButtons::Ok});
    if (options_.strictness == Strictness::RefusesDifferences && !texts.empty()) {
        ports_.messages.show({"Nothing was written.", MessageIcon::Exclamation, MessageButtons::Ok});
    }
}

void FillCommand::write() {
    try {
        readRecords();
        if (shared_) shared_->flush();
        endThreads();
    } catch (const AutomationError& error) {
        if (writers_) files_ = writers_->wait();
        ports_.files.finishBatch();
        if (files_ == 0) throw;
        throw AutomationError(error.number(), error.description() + " Before that, " +
                                                  counted(files_, "file") + (files_ == 1 ? " was" : " were") +
                                                  " written.");
    }
    finish();
}

void FillCommand::endThreads() {
    if (!writers_) return;
    files_ = writers_->wait();
    writers_->raiseError();
}

void FillCommand::readRecords() try {
    StructureDocument document;
    const bool loaded = document.Load(options_.dataFile, [this](Record& record) { writeRecord(record); });
    if (!loaded) refuseFill(document.parseError().reason);
} catch (const EnoughRead&) {
    // The records that follow are not selected.
}

void FillCommand::writeRecord(Record& record) {
    const std::size_t number = ++read_;
    if (number > options_.lastRecord) throw EnoughRead{};
    if (!isSelected(number)) return;
    if (shouldStop_()) {
        stopped_ = true;
        throw EnoughRead{};
    }
    if (shared_) {
        const std::string path = fullPath(names_.pathFor(record, number));
        return shared_->add(std::move(record), path);
    }
    const bool isListed = letters_->listsRecords() || (isSheet_ && use_ == letters::LetterUse::OneEach);
    if (isListed && !names_.dependOnRecord()) {
        listed_.push_back(std::move(record));
    } else if (use_ == letters::LetterUse::OneForAll) {
        letters_->append(record);
    } else if (writers_) {
        std::string path = fullPath(names_.pathFor(record, number));
        writers_->add(std::move(record), std::move(path));
    } else {
        writeLetter(names_.pathFor(record, number), {&record, 1});
    }
    advance();
}

void FillCommand::advance() {
    ports_.progress.advance(static_cast<std::int64_t>(++written_),
                            static_cast<std::int64_t>(selectedCount()));
}

void FillCommand::save(const std::string& path, const std::function<void(ByteSink&)>& writer) {
    format_->save(ports_.files, ports_.converter, path, writer);
}

void FillCommand::writeLetter(const std::string& path, std::span<const Record> records) {
    save(fullPath(path), [&](ByteSink& sink) { letters_->write(records, sink); });
    ++files_;
}

void FillCommand::finish() {
    const bool isOne = use_ == letters::LetterUse::OneForAll || !listed_.empty();
    if (isOne && stopped_) {
        written_ = 0;
        return;
    }
    const std::string target = fullPath(options_.output);
    if (!listed_.empty()) {
        writeLetter(target, listed_);
    } else if (use_ == letters::LetterUse::OneForAll) {
        save(target, [&](ByteSink& sink) { letters_->finish(sink); });
        ++files_;
    }
    ports_.files.finishBatch();
}

bool FillCommand::isSelected(std::size_t number) const {
    return number >= options_.firstRecord && number <= options_.lastRecord;
}

std::size_t FillCommand::selectedCount() const {
    return std::min(options_.lastRecord, records_) - options_.firstRecord + 1;
}

}  // namespace mergeloom
