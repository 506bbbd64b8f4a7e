#include "ui/designer/frmMain.h"

#include "app/GnuOptions.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/Paths.h"
#include "office/factory/OfficeFactory.h"
#include "ui/designer/BusyBar.h"
#include "ui/designer/DesignerActions.h"
#include "ui/designer/HostArea.h"
#include "ui/designer/StartPage.h"
#include "ui/designer/StatusSentences.h"
#include "ui/services/StateFolder.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

namespace mergeloom {

namespace {

using FieldConversion = DesignerActions::FieldConversion;

/// The tree takes a quarter of the window until the user changes it; space that the window gains goes to the
/// document.
constexpr int kTreePart = 4;

/// The initial height of the list of places as a part of the tree's height.
constexpr int kPlacesPart = 6;

constexpr const char* kDocumentTopic = "drag-field.html";

FieldConversion conversionIn(DocumentKind kind) {
    return kind == DocumentKind::Word ? FieldConversion::Offered : FieldConversion::Missing;
}

}  // namespace

frmMain::frmMain(DocumentKind kind)
    : messages_(this),
      errors_(this, {.officeBuild = [this] { return session_.officeBuild(); },
                     .log = [this](const std::string& line) { log_.append(line); }}),
      fileDialog_(this),
      passwordDialog_(this),
      fieldDialog_(this, errors_),
      templates_(windowSettings_.store(), kind == DocumentKind::Word ? "word" : "excel"),
      structures_(windowSettings_.store(), "structures"),
      splitter_(new QSplitter(this)),
      menus_(new QMenuBar(splitter_)),
      actions_(new DesignerActions(*menus_, conversionIn(kind))),
      leftSide_(new QSplitter(Qt::Vertical, splitter_)),
      tree_(new TreePane(leftSide_)),
      places_(new PlacesPane(leftSide_)),
      area_(new HostArea(splitter_)),
      status_(new QLabel(this)),
      busy_(new BusyBar(this)),
      cmdHelp_(new QPushButton(tr("&Help"), this)),
      dropTree_(*tree_),
      structureLoad_(fileDialog_, messages_, errors_),
      databases_({*this, fileDialog_, messages_, structureLoad_, *actions_, *tree_}),
      helpWindows_(messages_),
      help_(helpWindows_),
      formHelp_(*this, *cmdHelp_, "", GetHelpFilePath(), helpWindows_),
      dialogHelp_(helpWindows_, GetHelpFilePath()),
      session_(kind, {.startHost =
                          [this](const HostWindow& window, DocumentKind shown, HostListener& listener) {
                              return makeDocumentHost(files_, window, shown, listener);
                          },
                      .log = [this](const std::string& line) { log_.append(line); },
                      .messages = messages_,
                      .errors = errors_,
                      .fileDialog = fileDialog_,
                      .passwordDialog = passwordDialog_,
                      .fieldDialog = fieldDialog_,
                      .tree = dropTree_,
                      .files = files_,
                      .keptFolder = joinPath(stateFolder(), "kept"),
                      .keepInterval = windowSettings_.keepInterval()}),
      placesFlow_({.session = session_,
                   .actions = *actions_,
                   .document = area_->pane(),
                   .list = *places_,
                   .tree = *tree_,
                   .side = *leftSide_}) {
    help_.SetFile(GetHelpFilePath());
    layOut();
    connectActions();
    connectRecentFiles();
    connectStructure();
    connectPreview();
    connectOffice();
    busy_->follow(session_.worker(), session_.progress());
    connectKeyboard();
    showState();
}

/// Puts the menus above the tree. The office has a menu bar of its own above the document.
void frmMain::layOutLeftSide() {
    auto* const column = new QWidget(splitter_);
    auto* const rows = new QVBoxLayout(column);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(menus_);
    rows->addWidget(leftSide_, 1);
    splitter_->insertWidget(0, column);
}

void frmMain::layOut() {
    showTitle();
    layOutLeftSide();
    splitter_->setChildrenCollapsible(false);
    splitter_->setStretchFactor(splitter_->indexOf(area_), 1);
    setCentralWidget(splitter_);
    setHelpTopic(*this, "window.html");
    setHelpTopic(*tree_, "tree.html");
    setHelpTopic(area_->pane(), kDocumentTopic);
    setHelpTopic(area_->panel(), "office-ended.html");
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    cmdHelp_->setAccessibleDescription(tr("Opens the help about what has the keyboard."));
    statusBar()->addWidget(status_, 1);
    statusBar()->addPermanentWidget(busy_);
    statusBar()->addPermanentWidget(cmdHelp_);
    setTabOrder(&tree_->tvXML(), &places_->list());
    setTabOrder(&places_->list(), cmdHelp_);
    const QSize room = screen()->availableSize() * 9 / 10;
    resize(room);
    const int treeWidth = std::max(room.width() / kTreePart, tree_->sizeHint().width());
    splitter_->setSizes({treeWidth, room.width() - treeWidth});
    leftSide_->setChildrenCollapsible(false);
    leftSide_->setSizes({room.height(), room.height() / kPlacesPart});
    windowSettings_.restore(*this, *splitter_);
}

void frmMain::connectActions() {
    const auto executes = [this](HostCommand command) {
        return [this, command] { session_.execute(command); };
    };
    connect(actions_, &DesignerActions::newTemplate, this, executes(HostCommand::New));
    connect(actions_, &DesignerActions::open, this, executes(HostCommand::Open));
    connect(actions_, &DesignerActions::save, this, executes(HostCommand::Save));
    connect(actions_, &DesignerActions::saveAs, this, executes(HostCommand::SaveAs));
    connect(actions_, &DesignerActions::closeWindow, this, &QWidget::close);
    connect(actions_, &DesignerActions::loadStructure, this, [this] { structureLoad_.cmdLoadXML_Click(); });
    connect(actions_, &DesignerActions::insertNode, this, [this] { reportDrop(session_.insertAtCaret()); });
    connect(actions_, &DesignerActions::convertFields, &session_, &DesignerSession::convertFields);
    connect(actions_, &DesignerActions::helpContents, this, [this] { help_.OpenTOC(handle()); });
    connect(actions_, &DesignerActions::helpIndex, this, [this] { help_.OpenIndex(handle()); });
    connect(actions_, &DesignerActions::helpSearch, this, [this] { help_.OpenSearch(handle()); });
    connect(actions_, &DesignerActions::about, this, &frmMain::showAbout);
}

void frmMain::connectRecentFiles() {
    connect(&session_, &DesignerSession::fileUsed, this,
            [this](const QString& path) { templates_.add(path.toStdString()); });
    auto* const templates = new RecentMenu(actions_->recentTemplates(), templates_, this);
    connect(templates, &RecentMenu::chosen, &session_, &DesignerSession::openTemplate);
    auto* const structures = new RecentMenu(actions_->recentStructures(), structures_, this);
    connect(structures, &RecentMenu::chosen, this,
            [this](const QString& path) { structureLoad_.load(path.toStdString()); });
    structureLoad_.setLastFolder(structures_.folder());
    tree_->offer(structures_.paths(), samplePath());
}

/// Shows the document, a star when it has changes, and the program.
void frmMain::showTitle() {
    const QString program = tr("Mergeloom");
    if (caption_.isEmpty()) return setWindowTitle(program);
    setWindowTitle(QStringLiteral("%1%2 - %3").arg(hasChanges_ ? u"*" : u"", caption_, program));
}

void frmMain::connectPreview() {
    connect(actions_, &DesignerActions::preview, this, &frmMain::showPreview);
    connect(actions_, &DesignerActions::nextRecord, this,
            [this] { session_.goInPreview(PreviewStep::Next); });
    connect(actions_, &DesignerActions::previousRecord, this,
            [this] { session_.goInPreview(PreviewStep::Previous); });
    connect(&session_, &DesignerSession::previewChanged, this, [this] {
        actions_->setPreviewing(session_.previewed().has_value());
        showNextStep();
    });
}

void frmMain::showPreview(bool isShown) {
    isShown ? session_.startPreview() : session_.endPreview();
    // The command's check mark may differ from the result.
    actions_->setPreviewing(session_.previewed().has_value());
}

void frmMain::connectStructure() {
    connect(tree_, &TreePane::loadRequested, this, [this] { structureLoad_.cmdLoadXML_Click(); });
    connect(tree_, &TreePane::documentChosen, this,
            [this](const QString& path) { structureLoad_.load(path.toStdString()); });
    connect(tree_, &TreePane::selectionChanged, this, &frmMain::showNextStep);
    connect(tree_, &TreePane::cancelRequested, this, [this] { structureLoad_.cancel(); });
    connect(tree_, &TreePane::insertRequested, this, [this] { reportDrop(session_.insertAtCaret()); });
    connect(tree_, &TreePane::dragFinished, this, &frmMain::endDrag);
    connect(&structureLoad_, &StructureLoad::started, this, [this] {
        tree_->clear();
        tree_->setLoading(true);
        showNextStep();
    });
    connect(&structureLoad_, &StructureLoad::loaded, this,
            [this](const std::shared_ptr<LoadedStructure>& structure) {
                tree_->show(structure);
                structures_.add(structure->path);
                structureLoad_.setLastFolder(structures_.folder());
                tree_->offer(structures_.paths(), samplePath());
                session_.findPlaces();
                showNextStep();
            });
    connect(&structureLoad_, &StructureLoad::ended, this, [this] {
        tree_->setLoading(false);
        session_.setFolders(structureLoad_.documentsFolder(), structureLoad_.templatesFolder());
    });
}

void frmMain::connectOffice() {
    HostPane& pane = area_->pane();
    connect(&pane, &HostPane::resized, &session_, &DesignerSession::resize);
    connect(&pane, &HostPane::lookChanged, &session_.view(), &ViewUpdates::setLook);
    connect(&pane, &HostPane::draggedOver, &session_, &DesignerSession::showDropPlace);
    connect(&pane, &HostPane::dragLeft, &session_, &DesignerSession::hideDropPlace);
    connect(&pane, &HostPane::draggedOver, this, &frmMain::showNextStep);
    OfficePanel& panel = area_->panel();
    connect(&panel, &OfficePanel::cancelRequested, &session_, &DesignerSession::cancelStart);
    connect(&panel, &OfficePanel::startRequested, this, &frmMain::startOffice);
    connect(&session_, &DesignerSession::stateChanged, this, &frmMain::showState);
    connect(&session_, &DesignerSession::captionChanged, this, [this](const QString& caption) {
        caption_ = caption;
        showTitle();
    });
    connect(&session_, &DesignerSession::changesShown, this, [this](bool hasChanges) {
        hasChanges_ = hasChanges;
        showTitle();
    });
    connect(&session_, &DesignerSession::statusChanged, status_, &QLabel::setText);
    connect(&session_, &DesignerSession::commandBegun, this, &frmMain::showNextStep);
    connect(&session_, &DesignerSession::closeRequested, this, &QWidget::close);
}

void frmMain::connectKeyboard() {
    connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, menus_,
            [this] { menus_->setActiveAction(menus_->actions().constFirst()); });
    const auto hasStructure = [this] { return tree_->structure() != nullptr; };
    keyboard_.emplace(
        *this, area_->pane(), session_,
        std::vector<WindowKeyboard::Part>{
            {&tree_->searchBox()}, {&tree_->tvXML(), hasStructure}, {&area_->pane()}, {cmdHelp_}});
    connect(&session_, &DesignerSession::keyPressed, this, &frmMain::answerKey);
}

/// Handles a key that was pressed in the document.
void frmMain::answerKey(HostKey key) {
    if (QApplication::activeModalWidget() != nullptr) return;
    switch (key) {
        case HostKey::Help:
            return help_.OpenTopic(handle(), kDocumentTopic);
        case HostKey::NextPart:
            return keyboard_->goFromDocument(WindowKeyboard::Direction::Forward);
        case HostKey::PreviousPart:
            return keyboard_->goFromDocument(WindowKeyboard::Direction::Back);
        case HostKey::Preview:
            return showPreview(!session_.previewed());
        case HostKey::NextRecord:
            return session_.goInPreview(PreviewStep::Next);
        case HostKey::PreviousRecord:
            return session_.goInPreview(PreviewStep::Previous);
    }
}

void frmMain::start() {
    keyboard_->begin();
    startOffice();
    const std::string templatePath = commandLineFile(kTemplateSwitch);
    if (!templatePath.empty()) structureLoad_.setTemplatesFolder(parentFolder(templatePath));
    session_.setFolders(templates_.folder(), structureLoad_.templatesFolder());
    const std::string xmlFile = commandLineFile(kXmlFileSwitch);
    if (!xmlFile.empty()) databases_.openFile(xmlFile);
}

void frmMain::startOffice() {
    HostWindow window = area_->pane().hostWindow();
    window.keyboardId = keyboard_->inputWindow();
    session_.start(window);
}

void frmMain::showState() {
    const bool isRunning = session_.state() == OfficeState::Running;
    actions_->setDocumentAvailable(isRunning);
    area_->setPanelVisible(!isRunning);
    switch (session_.state()) {
        case OfficeState::Starting:
            area_->panel().showStarting();
            status_->setText(tr("The office is starting…"));
            break;
        case OfficeState::Opening:
            area_->panel().showOpening();
            break;
        case OfficeState::Running:
            showNextStep();
            break;
        case OfficeState::Stopped:
            area_->panel().showStopped(session_.stopReason());
            status_->setText(tr("There is no document."));
            break;
    }
}

/// Handles the end of a drag, wherever it ended; the drop waits for it.
void frmMain::endDrag() {
    if (const std::optional<HostPoint> point = area_->pane().takeDropPoint()) {
        fieldDialog_.keepVisible(area_->pane().onScreen(*point));
        reportDrop(session_.drop(*point));
        fieldDialog_.keepVisible({});
    } else {
        dropTree_.unhook();
        status_->setText(droppedBeside());
    }
}

void frmMain::reportDrop(bool isDropped) {
    const TreeNode* const node = tree_->selectedNode();
    const DropReport& report = session_.dropReport();
    if (isDropped && node != nullptr) placesFlow_.noteDrop(*node);
    status_->setText(isDropped && node != nullptr ? insertedSentence(*node, report.place)
                                                  : nothingInserted(node, structureState(), report.refusal));
}

StructureState frmMain::structureState() const {
    return tree_->structure() == nullptr ? StructureState::Missing : StructureState::Shown;
}

/// Clears the sentence about an earlier action.
void frmMain::showNextStep() {
    if (session_.state() != OfficeState::Running) return;
    const std::optional<PreviewedRecords>& records = session_.previewed();
    status_->setText(records ? previewSentence(*records) : nextStep(structureState()));
}

void frmMain::showAbout() {
    QMessageBox::about(this, tr("About Mergeloom"), QString::fromStdString(versionText()));
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (!session_.unload()) {
        event->ignore();
        return;
    }
    windowSettings_.keep(*this, *splitter_);
    formHelp_.mfrm_QueryUnload();
    help_.CloseAll();
    event->accept();
}

}  // namespace mergeloom
