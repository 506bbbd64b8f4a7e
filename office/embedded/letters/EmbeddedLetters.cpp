#include "office/embedded/letters/EmbeddedLetters.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/letters/FilledLetter.h"
#include "office/embedded/letters/LetterArchive.h"
#include "office/embedded/letters/LetterPictures.h"
#include "office/embedded/letters/LetterRenderer.h"
#include "office/embedded/letters/PartCutter.h"
#include "office/embedded/letters/PlaceMarker.h"
#include "office/embedded/letters/Token.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/embedded/word/WordContent.h"
#include "office/formats/FormatTable.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Keeps what is saved in memory.
class SavedBytes final : public FileStore {
  public:
    bool fileExists(const std::string&) override { return false; }
    std::string read(const std::string&) override { return bytes_; }
    void save(const std::string&, const std::function<void(ByteSink&)>& writer) override {
        Sink sink(bytes_);
        writer(sink);
    }
    std::string take() { return std::move(bytes_); }

  private:
    class Sink final : public ByteSink {
      public:
        explicit Sink(std::string& bytes) : bytes_(bytes) {}
        void write(std::span<const char> bytes) override { bytes_.append(bytes.data(), bytes.size()); }

      private:
        std::string& bytes_;
    };

    std::string bytes_;
};

std::string savedBytes(opc::Package& package, word::WdSaveFormat format) {
    SavedBytes bytes;
    DocumentFile file(bytes, package.fileName(), true);
    file.saveAs(package, DocumentFamily::Word, static_cast<int>(format), package.fileName());
    return bytes.take();
}

class EmbeddedLetters final : public letters::Letters {
  public:
    EmbeddedLetters(WordContent& content, FileStore& files, const letters::PlaceSources& sources,
                    letters::LetterSettings settings)
        : settings_(std::move(settings)),
          ids_(freeIds(content)),
          marked_(markPlaces(content, sources)),
          context_{marked_, settings_, content.package(), files} {
        content.storeParts();
        cutParts(content.package());
        archive_.emplace(savedBytes(content.package(), settings_.format), content.package().conformance());
        pictures_.emplace(files, settings_.findPicture, *archive_);
        renderer_.emplace(marked_, settings_, ids_, *pictures_);
        refusals_ = marked_.refusals;
        refusals_.insert(refusals_.end(), context_.refusals.begin(), context_.refusals.end());
    }

    [[nodiscard]] const std::vector<std::string>& refusals() const override { return refusals_; }
    [[nodiscard]] std::vector<letters::PlaceSource> filledPlaces() const override {
        std::vector<letters::PlaceSource> sources;
        for (const MarkedPlace& place : marked_.places)
            sources.push_back(place.source);
        return sources;
    }
    [[nodiscard]] bool listsRecords() const override { return context_.listsRecords; }
    [[nodiscard]] std::vector<std::string> remarks() const override {
        return {renderer_->remarks().begin(), renderer_->remarks().end()};
    }

    void write(std::span<const Record> records, ByteSink& sink) override {
        ChangedParts changed;
        renderer_->beginLetter();
        pictures_->begin();
        for (CutPart& part : parts_) {
            std::string xml;
            xml.reserve(lastSize_);
            renderer_->render(part, part.pieces, records, xml);
            lastSize_ = std::max(lastSize_, xml.size());
            changed.emplace(part.entryName, std::move(xml));
        }
        pictures_->addTo(changed);
        archive_->write(sink, changed);
    }

    void append(const Record& record) override {
        CutPart& main = parts_.front();
        // Only now it is certain that another section follows the one before.
        if (pending_) appendSection(main, *pending_, IsLast::No);
        pending_ = record;
    }

    void finish(ByteSink& sink) override {
        CutPart& main = parts_.front();
        if (pending_) appendSection(main, *pending_, IsLast::Yes);
        ChangedParts changed;
        std::string xml = outside(main, Side::Before);
        xml += sections_ + outside(main, Side::After);
        sections_.clear();
        changed.emplace(main.entryName, std::move(xml));
        pictures_->addTo(changed);
        archive_->write(sink, changed);
    }

  private:
    enum class IsLast { No, Yes };
    enum class Side { Before, After };

    static FreeIds freeIds(const WordContent& content) {
        return {content.highestDrawingId() + 1, content.highestId() + 1};
    }

    void cutParts(opc::Package& package) {
        const std::vector<std::string> names = partsWithPlaces(package);
        const bool isForAll = settings_.use == letters::LetterUse::OneForAll;
        for (const std::string& name : names) {
            const std::string xml = package.readPart(name);
            const bool isMain = name == names.front();
            const bool isCut = xml.find(kAnyToken) != std::string::npos || !marked_.tables.empty();
            if (!isCut && !(isMain && isForAll)) continue;
            const std::unique_ptr<opc::XmlPart> part = opc::XmlPart::parse(xml, name, package.fileName());
            parts_.push_back(cutPart(context_, *part, isMain));
            parts_.back().entryName = entryNameOf(name);
        }
    }

    void appendSection(CutPart& main, const Record& record, IsLast isLast) {
        renderer_->setFirstSection(sections_.empty());
        renderer_->setLastSection(isLast == IsLast::Yes);
        for (Piece& piece : main.pieces) {
            if (piece.kind == Piece::Kind::Section)
                renderer_->render(main, piece.inside, std::span(&record, 1), sections_);
        }
    }

    /// Returns the XML before or after the sections.
    static std::string outside(const CutPart& main, Side side) {
        std::string xml;
        bool isAfter = false;
        for (const Piece& piece : main.pieces) {
            if (piece.kind == Piece::Kind::Section) {
                isAfter = true;
            } else if (isAfter == (side == Side::After)) {
                xml += piece.xml;
            }
        }
        return xml;
    }

    letters::LetterSettings settings_;
    FreeIds ids_;  ///< read before places are marked
    MarkedPlaces marked_;
    CuttingContext context_;
    std::vector<CutPart> parts_;
    std::optional<LetterArchive> archive_;
    std::optional<LetterPictures> pictures_;
    std::optional<LetterRenderer> renderer_;
    std::vector<std::string> refusals_;
    std::size_t lastSize_ = 0;
    std::optional<Record> pending_;
    std::string sections_;
};

class EmbeddedLetterTemplate final : public letters::LetterTemplate {
  public:
    EmbeddedLetterTemplate(opc::Package package, FileStore& files)
        : content_(restored(std::move(package)), files), files_(files) {}

    [[nodiscard]] std::vector<std::string> bookmarkNames() override {
        std::vector<std::string> names;
        for (const BookmarkRecord* record : content_.bookmarks().inNameOrder())
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
    return std::make_unique<EmbeddedLetterTemplate>(opc::Package::read(files.read(path), path), files);
}

}  // namespace mergeloom::embedded
