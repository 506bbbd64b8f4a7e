#include "app/LetterPreview.h"

#include "base/AutomationError.h"
#include "droppers/PlaceDirectory.h"
#include "droppers/SampleRecord.h"
#include "office/factory/OfficeFactory.h"

#include <algorithm>
#include <utility>

namespace mergeloom {

namespace {

class TextSink final : public ByteSink {
  public:
    void write(std::span<const char> bytes) override { text_.append(bytes.data(), bytes.size()); }
    [[nodiscard]] std::string take() { return std::move(text_); }

  private:
    std::string text_;
};

std::size_t sizeOf(const letters::PlaceSources& sources) {
    return sources.places.size() + sources.tables.size();
}

}  // namespace

LetterPreview::LetterPreview(FileStore& files, DocumentKind kind, const std::string& path, std::string bytes,
                             const PreviewSource& source)
    : scheme_(kind == DocumentKind::Excel ? PlaceScheme::RangeNames : PlaceScheme::Bookmarks),
      template_(kind == DocumentKind::Excel ? openBookTemplate(files, path, std::move(bytes))
                                            : openLetterTemplate(files, path, std::move(bytes))) {
    chooseObject(source);
    compile(path, source.findPicture);
    chooseRecords(source);
}

/// Chooses the first of several objects with equally many places.
void LetterPreview::chooseObject(const PreviewSource& source) {
    const std::vector<std::string> names = template_->bookmarkNames();
    for (const TreeNode* const object : source.objects) {
        letters::PlaceSources found =
            placeSources(source.xmlNodes, *object, names, source.findPicture, scheme_);
        if (object_ != nullptr && sizeOf(found) <= sizeOf(places_)) continue;
        object_ = object;
        places_ = std::move(found);
    }
}

void LetterPreview::compile(const std::string& path, const letters::PictureFinder& findPicture) {
    const std::size_t labels = template_->labelsPerSheet(places_);
    letters::LetterSettings settings;
    settings.findPicture = findPicture;
    settings.fileName = path;
    letters_ = template_->compile(places_, settings);
    if (letters_->filledPlaces().empty()) {
        throw AutomationError(kNotAvailable,
                              letters_->refusals().empty()
                                  ? "The template has no place that a field of the structure document fills."
                                  : letters_->refusals().front());
    }
    recordsPerLetter_ = std::max<std::size_t>(1, labels);
}

void LetterPreview::chooseRecords(const PreviewSource& source) {
    records_ = source.records;
    if (records_.empty() || !isFilledBy(records_.front())) {
        sample_.push_back(sampleRecord(source.xmlNodes, *object_));
        records_ = sample_;
    }
    if (letters_->listsRecords()) recordsPerLetter_ = records_.size();
}

bool LetterPreview::isFilledBy(const Record& record) const {
    const std::vector<letters::PlaceSource> filled = letters_->filledPlaces();
    return std::ranges::any_of(filled, [&](const letters::PlaceSource& place) {
        return record.find(place.path.front()) != nullptr;
    });
}

std::size_t LetterPreview::count() const {
    return (records_.size() + recordsPerLetter_ - 1) / recordsPerLetter_;
}

PreviewedRecords LetterPreview::recordsOf(std::size_t letter) const {
    const std::size_t first = letter * recordsPerLetter_;
    const std::size_t last = std::min(first + recordsPerLetter_, records_.size());
    return {.first = first + 1, .last = last, .count = records_.size(), .areSamples = !sample_.empty()};
}

std::string LetterPreview::write(std::size_t letter) {
    const PreviewedRecords records = recordsOf(letter);
    TextSink sink;
    letters_->write(records_.subspan(records.first - 1, records.last - records.first + 1), sink);
    return sink.take();
}

}  // namespace mergeloom
