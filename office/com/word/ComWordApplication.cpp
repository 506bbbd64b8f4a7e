#include "office/com/word/ComWordApplication.h"

#include "base/AutomationError.h"
#include "office/com/automation/ErrorNumbers.h"
#include "office/com/automation/OfficeErrors.h"
#include "office/com/word/ComWord.h"
#include "office/formats/FormatTable.h"
#include "office/model/OpenDocuments.h"
#include "office/model/Undo.h"
#include "office/model/word/Selection.h"

#include <utility>

namespace mergeloom::com {

namespace {

/// WdAlertLevel: no message boxes; the first button of each is chosen.
constexpr int kAlertsNone = 0;
/// Word's error for a command that needs a document.
constexpr ErrorNumber kNoDocument = 4248;

class ComUndoRecord final : public word::UndoRecord {
  public:
    ComUndoRecord(AutomationObject application, std::shared_ptr<ComDocument> document)
        : application_(std::move(application)), document_(std::move(document)) {}

    void StartCustomRecord(const std::string& name) override {
        document_->startRecord();
        inRecord([&](const AutomationObject& record) { record.call("StartCustomRecord", {{"Name", name}}); });
    }
    bool EndCustomRecord() override {
        inRecord([](const AutomationObject& record) { record.call("EndCustomRecord"); });
        return document_->endRecord();
    }

  private:
    /// Word before 2010 has no such record: then each change is a step of its own.
    template <typename Call>
    void inRecord(const Call& call) {
        try {
            call(application_.object("UndoRecord", "UndoRecord"));
        } catch (const AutomationError& error) {
            if (error.number() != kMemberUnknown) throw;
        }
    }

    AutomationObject application_;
    std::shared_ptr<ComDocument> document_;
};

}  // namespace

void ComWordApplication::setUp() {
    app().put("DisplayAlerts", kAlertsNone);
    app().put("AutomationSecurity", kForceDisable);
}

ComWordApplication::~ComWordApplication() {
    if (hasQuit_) return;
    documents_.closeAll(
        [](ComDocument& document) { document.Close(word::WdSaveOptions::wdDoNotSaveChanges); });
    try {
        end();
    } catch (const std::exception&) {
        model_->session().endByForce();
    }
}

word::DocumentsPtr ComWordApplication::Documents() {
    return std::make_shared<model::OpenDocuments<word::Documents, word::Document, ComWordApplication>>(
        shared_from_this());
}

word::SelectionPtr ComWordApplication::Selection() {
    if (selection_) return selection_;
    try {
        selection_ = makeSelection(model_, app().object("Selection", "Selection"));
        return selection_;
    } catch (const AutomationError& error) {
        if (error.number() != kNoDocument) throw;
        throw AutomationError(kNotAvailable, error.description());
    }
}

word::UndoRecordPtr ComWordApplication::UndoRecord() {
    if (documents().empty()) throw AutomationError(kNotAvailable, "No document is open.");
    return std::make_shared<ComUndoRecord>(app(), documents().back());
}

bool ComWordApplication::canSaveAs(word::WdSaveFormat format) {
    return findFormat(DocumentFamily::Word, static_cast<int>(format)) != nullptr;
}

void ComWordApplication::Quit(word::WdSaveOptions saveChanges) {
    while (!documents().empty()) {
        const std::shared_ptr<ComDocument> last = documents().back();
        last->Close(saveChanges);
    }
    end();
    hasQuit_ = true;
}

void ComWordApplication::end() {
    if (app().object("Documents", "Documents").get("Count").integer() > 0) {
        app().put("Visible", true);
    } else {
        app().call("Quit", {{"SaveChanges", word::WdSaveOptions::wdDoNotSaveChanges}});
    }
    model_->session().releaseOffice();
}

word::DocumentPtr ComWordApplication::add(const std::string& templatePath) {
    word::DocumentPtr added;
    const AutomationObject documents = app().object("Documents", "Documents");
    if (templatePath.empty()) return list(documents.callForObject("Document", "Add"));
    readingFile(model_->session(), templatePath, [&] {
        added = list(documents.callForObject("Document", "Add", {{"Template", templatePath}}));
    });
    return added;
}

word::DocumentPtr ComWordApplication::open(const std::string& fileName) {
    word::DocumentPtr opened;
    const AutomationObject documents = app().object("Documents", "Documents");
    readingFile(model_->session(), fileName, [&] {
        opened = list(documents.callForObject("Document", "Open",
                                              {{"FileName", fileName},
                                               {"ConfirmConversions", false},
                                               {"AddToRecentFiles", false},
                                               {"PasswordDocument", kNoPassword},
                                               {"NoEncodingDialog", true}}));
    });
    return opened;
}

word::DocumentPtr ComWordApplication::list(const AutomationObject& document) {
    selection_.reset();
    return documents_.add(std::make_shared<ComDocument>(weak_from_this(), model_, document));
}

void ComWordApplication::remove(const ComDocument& document) {
    selection_.reset();
    documents_.remove(document);
}

word::ApplicationPtr makeWordApplication(const OfficeServer& server) {
    const auto office = std::make_shared<ComWordApplication>(
        std::make_shared<ComWordModel>(startApplication("Word", server)));
    office->setUp();
    return office;
}

}  // namespace mergeloom::com
