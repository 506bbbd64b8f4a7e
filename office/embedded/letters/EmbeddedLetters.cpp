#include "office/embedded/letters/EmbeddedLetters.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/letters/FilledLetter.h"
#include "office/embedded/letters/LabelSheet.h"
#include "office/embedded/letters/LetterParts.h"
#include "office/embedded/letters/LetterRenderer.h"
#include "office/embedded/letters/PartCutter.h"
#include "office/embedded/letters/PlaceMarker.h"
#include "office/embedded/letters/ReferenceMarker.h"
#include "office/embedded/letters/SharedLayout.h"
#include "office/embedded/letters/Token.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/embedded/parts/LetterArchive.h"
#include "office/embedded/word/WordContent.h"
#include "office/formats/FormatTable.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

std::size_t labelCount(WordContent& content, const letters::PlaceSources& sources) {
    const pugi::xml_node cell = cellOfAllPlaces(content, sources);
    return labelCells(cell, content.body().story.names()).size();
}

struct UncutPart {
    std::unique_ptr<opc::XmlPart> part;
    bool hasPlaces = false;
};

class EmbeddedLetters final : public letters::Letters {
  public:
    EmbeddedLetters(WordContent& content, FileStore& files, const letters::PlaceSources& sources,
                    letters::LetterSettings settings)
        : settings_(std::move(settings)),
          ids_(freeIds(content)),
          labelsPerSheet_(labelCount(content, sources)),
          lists_(content.package()),
          styles_(content.package()),
          hasSharedLayout_(labelsPerSheet_ == 0 && hasSharedLayout(content.package(), styles_, lists_)),
          marked_(markPlaces(content, sources)),
          context_{marked_, settings_, content.package(), files, lists_, styles_} {
        context_.labelsPerSheet = labelsPerSheet_;
        content.storeParts();
        cutParts(content.package());
        archive_.emplace(savedBytes(content.package(), DocumentFamily::Word,
                                    static_cast<int>(settings_.format), settings_.fileName),
                         content.package().conformance());
        added_.emplace(files, settings_.findPicture, *archive_, "/word/media/letter");
        added_->setMainPart(content.package().mainPart());
        renderer_.emplace(marked_, settings_, ids_, *added_, lists_);
        refusals_ = marked_.refusals;
        refusals_.insert(refusals_.end(), context_.refusals.begin(), context_.refusals.end());
    }

    [[nodiscard]] const std::vector<std::string>& refusals() const override { return refusals_; }
    [[nodiscard]] std::vector<letters::PlaceSource> filledPlaces() const override {
        std::vector<letters::PlaceSource> sources;
        sources.reserve(marked_.places.size());
        for (const MarkedPlace& place : marked_.places)
            sources.push_back(place.source);
        return sources;
    }
    [[nodiscard]] bool listsRecords() const override { return context_.listsRecords; }
    [[nodiscard]] std::vector<letters::ControlPath> firstRecordsOnly() const override {
        return {context_.firstRecordsOnly.begin(), context_.firstRecordsOnly.end()};
    }
    [[nodiscard]] std::vector<letters::ControlPath> tablesWithoutRows() const override {
        return {context_.tablesWithoutRows.begin(), context_.tablesWithoutRows.end()};
    }
    [[nodiscard]] bool canShareLayout() const override {
        return hasSharedLayout_ && !context_.needsOwnDocument;
    }
    [[nodiscard]] std::vector<std::string> remarks() const override {
        std::vector<std::string> remarks(renderer_->remarks().begin(), renderer_->remarks().end());
        if (lists_.isExhausted()) {
            remarks.emplace_back("Lists count on from record to record: Word knows " +
                                 std::to_string(ListRestarts::kMaxLists) + " lists in a document.");
        }
        return remarks;
    }

    void write(std::span<const Record> records, ByteSink& sink) override {
        ChangedParts changed;
        renderer_->beginLetter();
        added_->begin();
        for (CutPart& part : parts_) {
            std::string xml;
            xml.reserve(lastSize_);
            renderer_->render(part, part.pieces, records, xml);
            lastSize_ = std::max(lastSize_, xml.size());
            changed.emplace(part.entryName, std::move(xml));
        }
        added_->addTo(changed);
        archive_->write(sink, changed);
    }

    void append(const Record& record) override {
        // Another section follows, so the pending one is not the last.
        if (pending_.size() == std::max<std::size_t>(1, labelsPerSheet_)) {
            appendSections(pending_, IsLastSection::No);
            pending_.clear();
        }
        pending_.push_back(record);
    }

    void finish(ByteSink& sink) override {
        appendSections(pending_, IsLastSection::Yes);
        ChangedParts changed;
        for (CutPart& part : parts_) {
            if (part.kind != PartKind::HeaderOrFooter) changed.emplace(part.entryName, wholeXml(part));
        }
        for (auto& [entryName, xml] : firstHeaders_)
            changed.emplace(entryName, std::move(xml));
        const std::string lists = lists_.partName();
        if (!lists.empty()) changed.emplace(entryNameOf(lists), lists_.takeXml());
        added_->addTo(changed);
        archive_->write(sink, changed);
        beginDocument();
    }

  private:
    static FreeIds freeIds(const WordContent& content) {
        return {content.highestDrawingId() + 1, content.highestId() + 1};
    }

    void cutParts(opc::Package& package) {
        const std::vector<StoryPart> names = partsWithPlaces(package);
        const bool isForAll = settings_.use == letters::LetterUse::OneForAll;
        // All places have to be known before the first part is cut.
        std::vector<UncutPart> uncut;
        for (const auto& [name, kind] : names) {
            uncut.push_back(parsed(package, name));
            const bool isOwn = isForAll && uncut.back().hasPlaces;
            if (isOwn && kind == PartKind::HeaderOrFooter) noteLinks(package, names.front().name, name);
            if (isOwn && kind == PartKind::Comments) context_.repeatsComments = true;
        }
        for (std::size_t number = 0; number < names.size(); ++number) {
            const auto& [name, kind] = names[number];
            const bool hasSections = isForAll && kind != PartKind::HeaderOrFooter &&
                                     (kind != PartKind::Comments || context_.repeatsComments);
            if (!hasSections && !uncut[number].hasPlaces) continue;
            parts_.push_back(cutPart(context_, *uncut[number].part, kind));
            parts_.back().entryName = entryNameOf(name);
        }
    }

    UncutPart parsed(opc::Package& package, const std::string& name) {
        const std::string xml = package.readPart(name);
        const bool isMarked = hasPlaces(xml);
        UncutPart uncut{opc::XmlPart::parse(xml, name, package.fileName())};
        const bool isReferring = markReferences(*uncut.part, marked_, settings_.use);
        uncut.hasPlaces = isMarked || isReferring;
        return uncut;
    }

    [[nodiscard]] bool hasPlaces(const std::string& xml) const {
        const auto isThere = [&](const auto& marked) {
            return !marked.name.empty() && xml.find('"' + marked.name + '"') != std::string::npos;
        };
        return xml.find(kAnyToken) != std::string::npos || xml.find(kKeptPlace) != std::string::npos ||
               std::ranges::any_of(marked_.places, isThere) || std::ranges::any_of(marked_.tables, isThere);
    }

    void noteLinks(opc::Package& package, const std::string& mainPart, const std::string& partName) {
        opc::Relationships& relationships = package.relationshipsOf(mainPart);
        for (const opc::Relationship& relationship : relationships.all()) {
            if (relationship.mode != opc::TargetMode::Internal) continue;
            if (relationships.targetPart(relationship) != partName) continue;
            context_.linkedParts.insert(relationship.id);
            linkedIds_.emplace_back(relationship.id, partName);
        }
    }

    /// Discards the records of the previous document.
    void beginDocument() {
        section_ = 0;
        pending_.clear();
        firstHeaders_.clear();
        added_->begin();
        renderer_->beginLetter();
    }

    void appendSections(std::span<const Record> records, IsLastSection isLast) {
        renderer_->beginSection(section_, isLast);
        for (CutPart& part : parts_) {
            if (part.kind == PartKind::HeaderOrFooter) appendHeader(part, records);
        }
        for (CutPart& part : parts_) {
            if (part.kind != PartKind::HeaderOrFooter) appendSection(part, records);
        }
        ++section_;
    }

    void appendSection(CutPart& part, std::span<const Record> records) {
        for (Piece& piece : part.pieces) {
            if (piece.kind == Piece::Kind::Section)
                renderer_->render(part, piece.inside, records, part.sections);
        }
    }

    /// Adds the headers and footers of a section. The first section has those of the template, the others
    /// have copies.
    void appendHeader(CutPart& part, std::span<const Record> records) {
        std::string xml;
        if (section_ == 0) {
            renderer_->render(part, part.pieces, records, xml);
            firstHeaders_.emplace(part.entryName, std::move(xml));
            return;
        }
        const std::string name = added_->addLike(part.name);
        const std::string ownName = std::exchange(part.name, name);
        renderer_->render(part, part.pieces, records, xml);
        part.name = ownName;
        added_->setContent(name, std::move(xml));
        for (const auto& [id, partName] : linkedIds_) {
            if (partName == ownName) renderer_->setLink(id, added_->linkLike(parts_.front().name, id, name));
        }
    }

    /// Returns the XML of a part with its sections. The XML around the sections is that of the last record.
    std::string wholeXml(CutPart& part) {
        std::string xml;
        xml.reserve(part.sections.size() + lastSize_);
        for (Piece& piece : part.pieces) {
            if (piece.kind == Piece::Kind::Section) {
                xml += part.sections;
                part.sections = {};
            } else {
                Pieces one{piece};
                renderer_->render(part, one, pending_, xml);
            }
        }
        return xml;
    }

    letters::LetterSettings settings_;
    // These are read before the places are marked.
    FreeIds ids_;
    std::size_t labelsPerSheet_;
    ListRestarts lists_;
    NumberedStyles styles_;
    bool hasSharedLayout_;
    MarkedPlaces marked_;
    CuttingContext context_;
    std::vector<CutPart> parts_;
    std::optional<LetterArchive> archive_;
    std::optional<LetterParts> added_;
    std::optional<LetterRenderer> renderer_;
    std::vector<std::string> refusals_;
    std::size_t lastSize_ = 0;
    std::vector<Record> pending_;  ///< the records of the section that is not written yet
    std::int64_t section_ = 0;
    /// The ids of relationships to headers and footers with places, and their parts.
    std::vector<std::pair<std::string, std::string>> linkedIds_;
    std::map<std::string, std::string> firstHeaders_;
};

class EmbeddedLetterTemplate final : public letters::LetterTemplate {
  public:
    EmbeddedLetterTemplate(opc::Package package, FileStore& files)
        : content_(restored(std::move(package)), files), files_(files) {}

    [[nodiscard]] std::vector<std::string> bookmarkNames() override {
        std::vector<std::string> names;
        for (const BookmarkRecord* record : content_.bookmarks().withHidden())
            names.push_back(record->name);
        return names;
    }
    [[nodiscard]] std::vector<std::string> fieldNames() override {
        std::vector<std::string> names;
        for (const BookmarkRecord* record : content_.bookmarks().inNameOrder()) {
            const std::string text = record->story->text(startOf(*record), endOf(*record));
            if (equalsIgnoringCase(text, record->name)) names.push_back(record->name);
        }
        return names;
    }
    [[nodiscard]] std::size_t labelsPerSheet(const letters::PlaceSources& sources) override {
        return labelCount(content_, sources);
    }
    std::unique_ptr<letters::Letters> compile(const letters::PlaceSources& sources,
                                              const letters::LetterSettings& settings) override {
        return std::make_unique<EmbeddedLetters>(content_, files_, sources, settings);
    }

  private:
    static opc::Package restored(opc::Package package) {
        restoreTemplate(package);
        return package;
    }

    WordContent content_;
    FileStore& files_;
};

}  // namespace

std::unique_ptr<letters::LetterTemplate> openLetterTemplate(FileStore& files, const std::string& path) {
    return openLetterTemplate(files, path, files.read(path));
}

std::unique_ptr<letters::LetterTemplate> openLetterTemplate(FileStore& files, const std::string& path,
                                                            std::string bytes) {
    return std::make_unique<EmbeddedLetterTemplate>(opc::Package::read(std::move(bytes), path), files);
}

}  // namespace mergeloom::embedded
