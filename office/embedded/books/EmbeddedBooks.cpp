#include "office/embedded/books/EmbeddedBooks.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/books/BookPictures.h"
#include "office/embedded/books/BookPlaces.h"
#include "office/embedded/books/BookRenderer.h"
#include "office/embedded/books/BookStyles.h"
#include "office/embedded/books/PartCutter.h"
#include "office/embedded/books/RepetitionCheck.h"
#include "office/embedded/books/SheetCutter.h"
#include "office/embedded/excel/WorkbookContent.h"
#include "office/embedded/parts/AddedParts.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/embedded/parts/LetterArchive.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"
#include "office/model/excel/SheetReference.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Parts of a sheet, and of its drawings, whose references move.
constexpr std::array<std::string_view, 6> kPartsOfSheets{
    {"table", "drawing", "comments", "threadedComment", "vmlDrawing", "pivotTable"}};
constexpr std::array<std::string_view, 2> kPartsOfDrawings{{"chart", "chartEx"}};

std::unique_ptr<opc::XmlPart> readStyles(opc::Package& package, const std::string& workbookPart) {
    const std::string name = package.relatedPart(workbookPart, "styles");
    if (name.empty()) return {};
    return opc::XmlPart::parse(package.readPart(name), name, package.fileName());
}

bool hasFormulas(const std::string& sheetXml) {
    XmlScanner scanner(sheetXml);
    while (scanner.next()) {
        if (localNameOf(scanner.name()) == "f") return true;
    }
    return false;
}

bool isCut(const CutBookPart& part) {
    return std::ranges::any_of(part.pieces,
                               [](const BookPiece& piece) { return piece.kind != BookPiece::Kind::Fixed; });
}

class EmbeddedBooks final : public letters::Letters {
  public:
    EmbeddedBooks(WorkbookContent& content, FileStore& files, const letters::PlaceSources& sources,
                  const letters::LetterSettings& settings)
        : places_(findBookPlaces(content, sources)),
          sheets_{places_.maps, [&content](const std::string& name) { return content.worksheetNamed(name); }},
          styles_(readStyles(content.package(), content.workbook().partName())),
          renderer_(places_, book_, styles_, settings.emptyTables) {
        sheets_.obstacles = places_.obstacles;
        refuseObstacles(content.package().fileName());
        markPlaces(content);
        readProperties(content);
        prepareFormulas(content);
        pictures_.emplace(places_, content);
        cutParts(content);
        refuseObstacles(content.package().fileName());
        archive_.emplace(savedBytes(content.package(), DocumentFamily::Excel,
                                    static_cast<int>(settings.workbookFormat), settings.fileName),
                         content.package().conformance());
        added_.emplace(files, settings.findPicture, *archive_, "/xl/media/picture");
    }

    [[nodiscard]] const std::vector<std::string>& refusals() const override { return places_.refusals; }
    [[nodiscard]] std::vector<letters::PlaceSource> filledPlaces() const override {
        std::vector<letters::PlaceSource> sources;
        sources.reserve(places_.places.size());
        for (const BookPlace& place : places_.places)
            sources.push_back(place.source);
        return sources;
    }
    [[nodiscard]] bool listsRecords() const override {
        return std::ranges::any_of(places_.tables, [](const BookTable& table) { return table.path.empty(); });
    }
    [[nodiscard]] std::vector<letters::ControlPath> firstRecordsOnly() const override {
        std::set<letters::ControlPath> found;
        for (const BookPlace& place : places_.places) {
            for (letters::ControlPath path = place.source.path; path.size() > 1;) {
                path.pop_back();
                const bool isListed =
                    std::ranges::find(places_.tables, path, &BookTable::path) != places_.tables.end();
                if (!isListed) found.insert(path);
            }
        }
        return {found.begin(), found.end()};
    }
    [[nodiscard]] std::vector<letters::ControlPath> tablesWithoutRows() const override { return {}; }
    [[nodiscard]] std::vector<std::string> remarks() const override {
        std::vector<std::string> remarks(renderer_.remarks().begin(), renderer_.remarks().end());
        remarks.insert(remarks.end(), pictures_->remarks().begin(), pictures_->remarks().end());
        return remarks;
    }

    void write(std::span<const Record> records, ByteSink& sink) override {
        renderer_.begin(records);
        added_->begin();
        ChangedParts changed;
        renderParts(changed, false);
        // Rows become as high as their pictures.
        renderer_.setHeights(pictures_->render(renderer_, *archive_, *added_, changed));
        renderParts(changed, true);
        added_->addTo(changed);
        if (renderer_.usesDates()) changed.emplace(entryNameOf(styles_.partName()), styles_.xml());
        archive_->write(sink, changed);
    }

    [[nodiscard]] bool canShareLayout() const override { return false; }
    // A workbook takes all records through a table that lists them, and no other way.
    void append(const Record&) override {}
    void finish(ByteSink&) override {}

  private:
    void renderParts(ChangedParts& changed, bool areSheets) {
        for (const CutBookPart& part : parts_) {
            if (part.isSheet == areSheets)
                changed.emplace(entryNameOf(part.partName), renderer_.render(part));
        }
    }

    void readProperties(WorkbookContent& content) {
        const opc::Package& package = content.package();
        const std::string& name = content.workbook().partName();
        const auto part = opc::XmlPart::parse(package.readPart(name), name, package.fileName());
        const pugi::xml_node root = part->root();
        if (childNamed(root, "workbookPr").attribute("date1904").as_bool())
            book_.dates = DateSystem::From1904;
        book_.prefix = std::string(prefixOf(root.name()));
        for (std::size_t sheet = 0; sheet < content.workbook().sheets().size(); ++sheet) {
            book_.sheetNames.push_back(content.workbook().sheets()[sheet].name);
            const bool repeats = !places_.maps[sheet].isEmpty();
            const auto used = repeats ? content.sheet(sheet).part().usedArea() : std::nullopt;
            book_.lastRows.push_back(used ? used->last.row : 1);
        }
    }

    /// Gives each place a cell of its own. Places that cannot be written are left out.
    void markPlaces(WorkbookContent& content) {
        std::vector<BookPlace> kept;
        for (BookPlace& place : places_.places) {
            if (!place.isPicture && !mark(content, place)) continue;
            const int style = content.sheet(place.sheet).part().cell(place.cell).style;
            styles_.addDates(style);
            book_.placeStyles.push_back(style);
            book_.placeFormats.push_back(styles_.numberFormatOf(style));
            kept.push_back(std::move(place));
        }
        places_.places = std::move(kept);
    }

    bool mark(WorkbookContent& content, const BookPlace& place) {
        if (content.sheet(place.sheet).tables().isHeader(place.cell)) {
            places_.refusals.push_back("The place " + place.name +
                                       " is in the header of a table, whose text must not change.");
            return false;
        }
        try {
            content.setText(place.sheet, place.cell, place.name);
            return true;
        } catch (const AutomationError& error) {
            places_.refusals.push_back(error.description());
            return false;
        }
    }

    void prepareFormulas(WorkbookContent& content) {
        opc::Package& package = content.package();
        const bool calculates =
            std::ranges::any_of(content.workbook().sheets(), [&](const SheetEntry& entry) {
                return entry.kind == SheetKind::Worksheet && hasFormulas(package.readPart(entry.partName));
            });
        if (calculates) content.workbook().calculateOnLoad();
        if (sheets_.hasRepeatedRows()) addObstacles(content, places_, sheets_);
        content.storeParts();
        const std::string& workbook = content.workbook().partName();
        if (sheets_.hasRepeatedRows()) dropCalculationChain(package, workbook);
        dropMarks(package, workbook);
    }

    /// Excel makes another chain.
    static void dropCalculationChain(opc::Package& package, const std::string& workbook) {
        const std::string name = package.relatedPart(workbook, "calcChain");
        if (name.empty()) return;
        package.removePart(name);
        opc::Relationships& relationships = package.relationshipsOf(workbook);
        std::vector<std::string> ids;
        for (const opc::Relationship* relationship : relationships.ofOfficeType("calcChain"))
            ids.push_back(relationship->id);
        for (const std::string& id : ids)
            relationships.remove(id);
    }

    /// Removes the marks of an earlier filling.
    static void dropMarks(opc::Package& package, const std::string& workbook) {
        const auto part = opc::XmlPart::parse(package.readPart(workbook), workbook, package.fileName());
        pugi::xml_node names = childNamed(part->root(), "definedNames");
        bool isChanged = false;
        for (const pugi::xml_node name : childrenNamed(names, "definedName")) {
            if (!marksFilledRows(name.attribute("name").value())) continue;
            names.remove_child(name);
            isChanged = true;
        }
        if (isChanged) package.writePart(workbook, part->toXml());
    }

    void cutParts(WorkbookContent& content) {
        opc::Package& package = content.package();
        const std::vector<SheetEntry>& entries = content.workbook().sheets();
        for (std::size_t sheet = 0; sheet < entries.size(); ++sheet) {
            const std::string& name = entries[sheet].partName;
            if (entries[sheet].kind == SheetKind::Worksheet)
                keep(package, name,
                     [&](const std::string& xml) { return cutSheet(xml, sheet, places_, sheets_); });
            if (sheets_.hasRepeatedRows()) cutRelated(package, name, kPartsOfSheets, sheet);
        }
        if (!sheets_.hasRepeatedRows()) return;
        const std::string& workbook = content.workbook().partName();
        cutRelated(package, workbook, std::array<std::string_view, 1>{{"pivotCacheDefinition"}},
                   entries.size());
        cutPart(package, workbook, entries.size(), MovableFormula::SingleCells::Grow);
    }

    void cutRelated(opc::Package& package, const std::string& source, std::span<const std::string_view> types,
                    std::size_t sheet) {
        const opc::Relationships& relationships = package.relationshipsOf(source);
        for (const std::string_view type : types) {
            for (const opc::Relationship* relationship : relationships.ofOfficeType(type)) {
                const std::string name = relationships.targetPart(*relationship);
                if (!package.hasPart(name) || !cutNames_.insert(opc::partKey(name)).second) continue;
                cutPart(package, name, sheet,
                        type.starts_with("chart") ? MovableFormula::SingleCells::Grow
                                                  : MovableFormula::SingleCells::Stay);
                if (type == "drawing") cutRelated(package, name, kPartsOfDrawings, sheet);
            }
        }
    }

    /// Names and the values of charts are those of all repetitions.
    void cutPart(opc::Package& package, const std::string& name, std::size_t sheet,
                 MovableFormula::SingleCells singleCells) {
        keep(package, name, [&](const std::string& xml) {
            CutBookPart part{.sheet = sheet, .singleCells = singleCells};
            BookPartCutter(part, sheets_).cut(xml);
            return part;
        });
    }

    template <typename Cut>
    void keep(opc::Package& package, const std::string& name, Cut cut) {
        try {
            const std::string xml = toUtf8Xml(package.readPart(name), name, package.fileName());
            CutBookPart part = cut(xml);
            part.partName = name;
            if (isCut(part)) {
                parts_.push_back(std::move(part));
            } else if (!part.pieces.empty() && part.pieces.front().xml != xml) {
                package.writePart(name, std::move(part.pieces.front().xml));
            }
        } catch (const BadXml& problem) {
            opc::raiseUnreadable(package.fileName(), "its part " + opc::quoted(name) + " " + problem.what());
        }
    }

    void refuseObstacles(const std::string& fileName) const {
        if (sheets_.obstacles.empty()) return;
        throw AutomationError(kNotAvailable,
                              "The template '" + fileName +
                                  "' cannot be filled: rows of a table cannot be repeated, because " +
                                  sheets_.obstacles.front() + ".");
    }

    BookPlaces places_;
    BookSheets sheets_;
    BookProperties book_;
    BookStyles styles_;
    BookRenderer renderer_;
    std::vector<CutBookPart> parts_;
    std::set<std::string> cutNames_;
    std::optional<BookPictures> pictures_;
    std::optional<LetterArchive> archive_;
    std::optional<AddedParts> added_;
};

class EmbeddedBookTemplate final : public letters::LetterTemplate {
  public:
    EmbeddedBookTemplate(opc::Package package, FileStore& files)
        : content_(std::move(package), files), files_(files) {}

    [[nodiscard]] std::vector<std::string> bookmarkNames() override {
        return names([](const DefinedNames::Entry&) { return true; });
    }
    [[nodiscard]] std::vector<std::string> fieldNames() override {
        return names([this](const DefinedNames::Entry& entry) { return showsName(entry); });
    }
    [[nodiscard]] std::size_t labelsPerSheet(const letters::PlaceSources&) override { return 0; }
    std::unique_ptr<letters::Letters> compile(const letters::PlaceSources& sources,
                                              const letters::LetterSettings& settings) override {
        return std::make_unique<EmbeddedBooks>(content_, files_, sources, settings);
    }

  private:
    template <typename Filter>
    [[nodiscard]] std::vector<std::string> names(Filter filter) {
        std::vector<std::string> found;
        DefinedNames& all = content_.workbook().names();
        for (std::size_t index = 0; index < all.count(); ++index) {
            const DefinedNames::Entry entry = all.at(index);
            if (filter(entry)) found.push_back(entry.name);
        }
        return found;
    }

    /// Returns true if the cell of a name shows a name in brackets, as a place does.
    [[nodiscard]] bool showsName(const DefinedNames::Entry& entry) {
        const std::optional<excel::SheetReference> reference = excel::parseReference(entry.formula);
        const auto sheet = reference ? content_.worksheetNamed(reference->sheetName) : std::nullopt;
        if (!sheet) return false;
        const std::string text = content_.textOf(*sheet, reference->area.first);
        return text.size() > 2 && text.starts_with('[') && text.ends_with(']');
    }

    WorkbookContent content_;
    FileStore& files_;
};

}  // namespace

std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path) {
    return openBookTemplate(files, path, files.read(path));
}

std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path,
                                                          std::string bytes) {
    return std::make_unique<EmbeddedBookTemplate>(opc::Package::read(std::move(bytes), path), files);
}

}  // namespace mergeloom::embedded
