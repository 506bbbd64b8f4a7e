/// Edits files of other programs in LibreOffice as the window does, saves them, and prints a line of JSON for
/// each.
///
///     save_files STRUCTURE FAULTS FILE...
///
/// Each file is saved once without a change and once after a word, eight fields and a table were put into it;
/// the result stays in the file. STRUCTURE has the fields with the keys 2 to 9 and a table with the key 10.
/// FAULTS is the number of faults of each kind that are planted into each result, to see whether the proof
/// notices them.

#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "doubles/RecordingMessages.h"
#include "droppers/CNodeDropper.h"
#include "libreoffice/saving/PlantedFaults.h"
#include "office/graft/PackageGraft.h"
#include "office/libreoffice/excel/CalcHosting.h"
#include "office/libreoffice/excel/CalcOffice.h"
#include "office/libreoffice/readback/KeptOriginal.h"
#include "office/libreoffice/remote/WriterOffice.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/OfficeDocument.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"
#include "xml/CXML2TreeView.h"
#include "xml/RecordingErrorHandler.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <iostream>

namespace mergeloom {

namespace {

using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;
using libreoffice::Reference;

constexpr int kFields = 8;
constexpr const char* kTable = "10k";

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char each : text) {
        if (each == '"' || each == '\\') result += '\\';
        result += static_cast<unsigned char>(each) < 0x20 ? ' ' : each;
    }
    return result + "\"";
}

/// The graft of the window, with access to its last arguments.
class RecordingGraft final : public model::PackageGraft {
  public:
    [[nodiscard]] bool covers(DocumentKind kind) const override { return graft_->covers(kind); }
    [[nodiscard]] model::GraftResult graft(const model::EditedPackage& package) const override {
        original = package.original;
        baseline = package.baseline;
        edited = package.edited;
        format = package.format;
        model::GraftResult result = graft_->graft(package);
        const auto* const made = std::get_if<model::GraftedPackage>(&result);
        repeated = made == nullptr ? "" : made->bytes;
        return result;
    }
    [[nodiscard]] std::string lossesOf(const model::EditedPackage& package) const override {
        return graft_->lossesOf(package);
    }
    [[nodiscard]] bool isExport(const model::EditedPackage& package) const override {
        return graft_->isExport(package);
    }
    [[nodiscard]] model::KeptEntries keptEntries(const std::string& former,
                                                 const std::string& grafted) const override {
        return graft_->keptEntries(former, grafted);
    }
    [[nodiscard]] std::optional<model::GraftRefusal> findFault(const model::EditedPackage& package,
                                                               const std::string& again,
                                                               const std::string& proof) const override {
        proved = proof;
        return graft_->findFault(package, again, proof);
    }

    mutable std::string original, baseline, edited, repeated, proved;
    mutable int format = 0;

  private:
    std::unique_ptr<model::PackageGraft> graft_ = graft::makePackageGraft();
};

class NoProgress final : public Progress {
  public:
    void advance(std::int64_t, std::int64_t) override {}
};

/// The structure document with the dropped fields.
class Structure {
  public:
    explicit Structure(const std::string& xml) {
        if (!structure_.loadXML(xml)) throw AutomationError(kCommandFailed, "no structure document");
        CXML2TreeView view{tree_, structure_, errors_};
        view.DisplayXMLNode(0, structure_.documentElement(), false);
        nodes_ = std::move(view.XMLNodes());
    }

    template <class DocumentPtr>
    void drop(const std::string& key, const DocumentPtr& document) {
        CNodeDropper dropper{errors_, messages_, [](const std::string&) { return std::string(); }, progress_};
        for (int index = 1; index <= tree_.Count(); ++index) {
            if (tree_.Item(index)->Key() != key) continue;
            if (dropper.NodeDrop(*tree_.Item(index), document, nodes_, false, DocumentType::ByView, nullptr))
                return;
            throw AutomationError(kCommandFailed, "nothing was dropped: " + messages_.texts());
        }
        throw AutomationError(kCommandFailed, "no node " + key);
    }

  private:
    RecordingErrorHandler errors_;
    RecordingMessages messages_;
    NoProgress progress_;
    StructureDocument structure_;
    TreeView tree_;
    XmlNodeCollection nodes_;
};

/// Saves files of both kinds in one office.
class Saver {
  public:
    Saver(const std::string& structure, int faults)
        : structure_(DiskFileStore().read(structure)), faults_(faults) {}

    void save(const std::string& path) {
        path_ = path;
        kind_ = toLowerAscii(extension(path)).starts_with("xl") ? DocumentKind::Excel : DocumentKind::Word;
        const std::string original = disk_.read(path);
        std::cout << "{\"file\": " << quoted(fileNameOnly(path));
        try {
            if (kind_ == DocumentKind::Word)
                saveText(original);
            else
                saveBook(original);
        } catch (const model::DifferingCopy& copy) {
            keepCase("edited");
            keep("differing", copy.bytes());
            std::cout << ", \"outcome\": \"error\", \"reason\": " << quoted(copy.description());
        } catch (const AutomationError& error) {
            std::cout << ", \"outcome\": \"error\", \"reason\": " << quoted(error.description());
        }
        std::cout << "}" << std::endl;
    }

  private:
    void saveText(const std::string& original) {
        const auto word = libreoffice::makeWordApplication(office_, disk_, grafting_);
        const word::DocumentPtr document = word->Documents()->Open(path_);
        try {
            saveUnchanged(*document, original);
            editText(*word, document);
            saveEdited(*document);
        } catch (...) {
            document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
            throw;
        }
        document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    }
    void saveBook(const std::string& original) {
        const auto excel = libreoffice::makeExcelApplication(office_, disk_, grafting_);
        const excel::WorkbookPtr book = excel->Workbooks()->Open(path_);
        try {
            saveUnchanged(*book, original);
            editBook(*excel, book);
            saveEdited(*book);
        } catch (...) {
            book->Close(excel::SaveChanges::No);
            throw;
        }
        book->Close(excel::SaveChanges::No);
    }
    void saveUnchanged(model::OfficeDocument& document, const std::string& original) {
        document.SetSaved(false);
        try {
            document.Save();
            const bool isSame = disk_.read(path_) == original;
            if (!isSame) keepCase("unchanged");
            std::cout << ", \"same\": " << (isSame ? "true" : "false");
        } catch (const AutomationError& error) {
            std::cout << ", \"same\": false, \"why\": " << quoted(error.description());
        }
    }
    /// Drops the fields at the ends of paragraphs in all of the text, and types the word in the first one.
    void editText(word::Application& word, const word::DocumentPtr& document) {
        for (int field = 0; field <= kFields; ++field) {
            office_->connection().call([&] { goTo(*document, field); });
            libreoffice::beginEditing(*document);
            if (field == 0)
                word.Selection()->TypeText(" added");
            else
                structure_.drop(std::to_string(field + 1) + "k", document);
            libreoffice::endEditing(*document);
        }
        word.Selection()->EndKey(word::WdUnits::wdStory);
        word.Selection()->TypeParagraph();
        structure_.drop(kTable, document);
    }
    static void goTo(word::Document& document, int field) {
        const Reference<css::frame::XModel> model(libreoffice::componentOf(document), UNO_QUERY_THROW);
        const Reference<css::text::XTextDocument> text(model, UNO_QUERY_THROW);
        const Reference<css::container::XEnumerationAccess> all(text->getText(), UNO_QUERY_THROW);
        std::vector<Reference<css::text::XTextRange>> paragraphs;
        const Reference<css::container::XEnumeration> each = all->createEnumeration();
        while (each->hasMoreElements()) {
            const Reference<css::text::XTextRange> paragraph(each->nextElement(), UNO_QUERY);
            if (paragraph.is()) paragraphs.push_back(paragraph);
        }
        const Reference<css::text::XTextViewCursorSupplier> view(model->getCurrentController(),
                                                                 UNO_QUERY_THROW);
        if (paragraphs.empty()) return;
        const std::size_t at = paragraphs.size() * static_cast<std::size_t>(field) / (kFields + 1);
        view->getViewCursor()->gotoRange(paragraphs[at]->getEnd(), false);
    }
    /// Inserts the word, the fields and the table below the used area of the active sheet, and one field in
    /// it.
    void editBook(excel::Application& application, const excel::WorkbookPtr& book) {
        const excel::WorksheetPtr sheet = application.ActiveCell()->Worksheet();
        const int end = office_->connection().call([&] { return usedRows(*book, sheet->Name()); });
        sheet->Cells(end + 2, 1)->SetValue("added");
        for (int field = 1; field <= kFields; ++field) {
            sheet->Cells(end + 2 + field % 3, 1 + field)->Select();
            structure_.drop(std::to_string(field + 1) + "k", book);
        }
        sheet->Cells(end + 7, 2)->Select();
        structure_.drop(kTable, book);
    }
    static int usedRows(excel::Workbook& book, const std::string& sheetName) {
        const Reference<css::sheet::XSpreadsheetDocument> document(libreoffice::componentOf(book),
                                                                   UNO_QUERY_THROW);
        const Reference<css::container::XNameAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
        const Reference<css::sheet::XSpreadsheet> sheet(sheets->getByName(libreoffice::toUno(sheetName)),
                                                        UNO_QUERY_THROW);
        const Reference<css::sheet::XSheetCellCursor> cursor = sheet->createCursor();
        Reference<css::sheet::XUsedAreaCursor>(cursor, UNO_QUERY_THROW)->gotoEndOfUsedArea(false);
        return Reference<css::sheet::XCellRangeAddressable>(cursor, UNO_QUERY_THROW)
                   ->getRangeAddress()
                   .EndRow +
               1;
    }
    void saveEdited(model::OfficeDocument& document) {
        try {
            document.Save();
        } catch (const model::LossySave& loss) {
            std::cout << ", \"outcome\": \"asked\", \"reason\": " << quoted(loss.description());
            keepCase("edited");
            return;
        }
        const auto kept = document.keptEntries();
        std::cout << ", \"outcome\": \"proved\", \"kept\": " << (kept ? kept->unchanged : 0)
                  << ", \"entries\": " << (kept ? kept->all : 0);
        if (faults_ > 0) plant(disk_.read(path_));
    }
    /// Writes the exports of a refused save to the folder of its file.
    void keepCase(const std::string& edited) {
        keep("baseline", graft_.baseline);
        keep("grafted", graft_.repeated);
        keep("proof", graft_.proved);
        keep(edited, graft_.edited);
    }
    void keep(const std::string& name, const std::string& bytes) {
        disk_.save(path_ + "." + name, [&](ByteSink& sink) { sink.write(bytes); });
    }
    [[nodiscard]] libreoffice::SaveFormat format() const {
        if (kind_ == DocumentKind::Excel) return excel::XlFileFormat{graft_.format};
        return word::WdSaveFormat{graft_.format};
    }
    std::string exported(const std::string& bytes) {
        return grafting_->exportOf({path_, std::make_shared<const std::string>(bytes), path_, format(), {}});
    }
    void plant(const std::string& result) {
        const model::EditedPackage package{kind_,           graft_.format,   path_,
                                           graft_.original, graft_.baseline, graft_.edited};
        const std::string again = exported(graft_.edited);
        int planted = 0;
        std::string missed;
        for (const std::string& fault : faultNames()) {
            for (int number = 0; number < faults_; ++number) {
                const auto spoilt = withFault(result, kind_, fault, chance_);
                if (!spoilt) continue;
                ++planted;
                if (graft_.findFault(package, again, exported(*spoilt))) continue;
                missed += (missed.empty() ? "" : ", ") + quoted(fault);
                keep("missed", *spoilt);
            }
        }
        std::cout << ", \"planted\": " << planted << ", \"missed\": [" << missed << "]";
    }

    DiskFileStore disk_;
    RecordingGraft graft_;
    Structure structure_;
    int faults_;
    std::string path_;
    DocumentKind kind_ = DocumentKind::Word;
    std::mt19937 chance_{1};
    std::shared_ptr<libreoffice::LibreOfficeSession> office_ =
        std::make_shared<libreoffice::LibreOfficeSession>(disk_);
    libreoffice::GraftingOfficePtr grafting_ = std::make_shared<libreoffice::GraftingOffice>(graft_, disk_);
};

}  // namespace

}  // namespace mergeloom

int main(int count, char** arguments) {
    if (count < 4) {
        std::cerr << "save_files STRUCTURE FAULTS FILE...\n";
        return 2;
    }
    try {
        mergeloom::Saver saver(arguments[1], std::atoi(arguments[2]));
        for (int file = 3; file < count; ++file)
            saver.save(arguments[file]);
    } catch (const mergeloom::AutomationError& error) {
        std::cerr << error.description() << "\n";
        return 1;
    }
    return 0;
}
