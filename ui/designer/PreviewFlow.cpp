#include "ui/designer/PreviewFlow.h"

#include "base/AutomationError.h"
#include "ui/designer/DocumentErrors.h"
#include "ui/designer/MainForm.h"

#include <string>
#include <variant>

namespace mergeloom {

namespace {

/// Returns true for errors whose description is a sentence for the user.
bool isForUser(ErrorNumber number) {
    return number == kNotAvailable || number == kFileCouldNotBeRead || number == kFileCouldNotBeSaved;
}

}  // namespace

void PreviewFlow::start(const std::shared_ptr<LoadedStructure>& structure) {
    run([&] {
        if (refusesUnderDialog(ports_.access.host(), ports_.messages)) return;
        compile(*structure);
        structure_ = structure;
        show(0);
    });
}

void PreviewFlow::compile(const LoadedStructure& structure) {
    DocumentHost& host = ports_.access.host();
    host.endInput();
    const HostedDocument hosted = host.ActiveDocument();
    kind_ = std::holds_alternative<excel::WorkbookPtr>(hosted) ? DocumentKind::Excel : DocumentKind::Word;
    const PreviewSource source{
        .xmlNodes = structure.xmlNodes,
        .objects = structure.objects,
        .records = structure.records,
        .findPicture = [&](const std::string& image) { return structure.document.findPicture(image); }};
    letters_ =
        std::make_unique<LetterPreview>(ports_.files, kind_, nameOf(hosted), host.exportedPackage(), source);
}

void PreviewFlow::show(std::size_t letter) {
    ports_.access.host().showPreview(kind_, letters_->write(letter));
    ports_.access.host().focusOpened();
    letter_ = letter;
}

void PreviewFlow::go(PreviewStep step) {
    if (!shown_) return;
    const bool isForward = step == PreviewStep::Next;
    run([&] {
        const bool isAtEnd = isForward ? letter_ + 1 == letters_->count() : letter_ == 0;
        if (!isAtEnd) show(isForward ? letter_ + 1 : letter_ - 1);
    });
}

void PreviewFlow::end() {
    if (!shown_) return;
    run([this] {
        letters_.reset();
        ports_.access.host().endPreview();
        ports_.access.host().focusOpened();
    });
}

/// After an error there is no preview.
template <typename Body>
void PreviewFlow::run(const Body& body) {
    std::optional<PreviewedRecords> shown;
    trap(ports_.errors, kMainForm, "PreviewTemplate", [&] {
        ports_.jobs.run([&] {
            try {
                ports_.access.host().beginOpening();
                body();
                if (letters_) shown = letters_->recordsOf(letter_);
            } catch (const AutomationError& error) {
                endShown();
                if (!isForUser(error.number())) throw;
                (void)ports_.messages.show(
                    {error.description(), MessageIcon::Exclamation, MessageButtons::Ok});
            } catch (const std::exception&) {
                endShown();
                throw;
            }
        });
    });
    shown_ = shown;
}

void PreviewFlow::endShown() try {
    letters_.reset();
    ports_.access.host().endPreview();
} catch (const AutomationError&) {
    // The office has ended, which is reported by itself.
}

}  // namespace mergeloom
