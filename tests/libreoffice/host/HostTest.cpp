#include "libreoffice/host/HostTest.h"

#include "doubles/WordFiles.h"
#include "office/model/excel/Workbook.h"

#include <execinfo.h>
#include <signal.h>
#include <unistd.h>

namespace mergeloom {

namespace {

constexpr auto kSaveFormat = word::WdSaveFormat::wdFormatXMLDocument;
/// A limit that is longer than every timeout of the office and its window.
constexpr unsigned kSecondsOfHang = 240;

void reportHang(int) {
    void* frames[64];
    ::backtrace_symbols_fd(frames, ::backtrace(frames, 64), STDERR_FILENO);
    ::_exit(EXIT_FAILURE);
}

}  // namespace

/// Ends a test that hangs and prints its call stack.
HostTest::HostTest() {
    ::signal(SIGALRM, reportHang);
    ::alarm(kSecondsOfHang);
}

HostTest::~HostTest() {
    ::alarm(0);
}

HostTest::Stage& HostTest::stage() {
    static Stage stage;
    return stage;
}

void HostTest::startOffice() {
    stage().host = std::make_unique<libreoffice::LibreOfficeHost>(stage().files, window().host(),
                                                                  DocumentKind::Word, stage().listener);
}

void HostTest::endOffice() {
    stage().host.reset();
}

word::DocumentPtr HostTest::document() {
    return std::get<word::DocumentPtr>(host().ActiveDocument());
}

excel::WorkbookPtr HostTest::workbook() {
    return std::get<excel::WorkbookPtr>(host().ActiveDocument());
}

std::string HostTest::body() {
    document()->SaveAs("/saved.docx", kSaveFormat);
    return shownBody(stage().files.read("/saved.docx"));
}

bool HostTest::bodyBecomes(const std::string& expected) {
    if (becomesTrue([&] { return body() == expected; })) return true;
    ADD_FAILURE() << "the body is " << body();
    return false;
}

void HostTest::openBody(const std::string& bodyXml) {
    stage().files.files["/given.docx"] = wordFile(bodyXml);
    host().Open("/given.docx", FileAccess::Edit, {});
}

bool HostTest::drop(const TreeNode& dropped) {
    CNodeDropper dropper{errors, messages, [this](const std::string& image) { return pictures[image]; },
                         progress, nullptr};
    const HostedDocument active = host().ActiveDocument();
    host().beginEditing();
    bool done = false;
    if (const auto* const text = std::get_if<word::DocumentPtr>(&active))
        done = dropper.NodeDrop(dropped, *text, xmlNodes, false, DocumentType::ByView, nullptr);
    if (const auto* const cells = std::get_if<excel::WorkbookPtr>(&active))
        done = dropper.NodeDrop(dropped, *cells, xmlNodes, false, DocumentType::ByView, nullptr);
    host().endEditing();
    return done;
}

bool HostTest::dropAt(HostPoint point, const TreeNode& dropped) {
    return host().placeCaret(point) && drop(dropped);
}

int HostTest::topOfDocument() {
    for (int y = 0; y < TestWindow::kPaneHeight; y += 2)
        if (host().placeCaret({400, y})) return y;
    return TestWindow::kPaneHeight;
}

void HostedText::SetUp() {
    host().CreateNew("Word.Template.8");
    window().clickInPane(kBelowText.x, kBelowText.y);
}

}  // namespace mergeloom
