#include "ui/designer/DesignerActions.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace mergeloom {

DesignerActions::DesignerActions(QMenuBar& bar, FieldConversion conversion) : QObject(&bar) {
    addTemplateMenu(bar);
    addWorkMenus(bar, conversion);
    addPreviewMenu(bar);
    addProgramMenu(bar);
    setDocumentAvailable(false);
    setPreviewing(false);
}

void DesignerActions::addTemplateMenu(QMenuBar& bar) {
    QMenu& templates = *bar.addMenu(tr("Te&mplate"));
    addForDocument(templates, tr("&New"), QKeySequence::New, &DesignerActions::newTemplate);
    addForDocument(templates, tr("&Open…"), QKeySequence::Open, &DesignerActions::open);
    recentTemplates_ = templates.addMenu(tr("Open &Recent"));
    templates.addSeparator();
    addForDocument(templates, tr("&Save"), QKeySequence::Save, &DesignerActions::save);
    addForDocument(templates, tr("Save &As…"), QKeySequence(tr("Ctrl+Shift+S")), &DesignerActions::saveAs);
    templates.addSeparator();
    add(templates, tr("&Close"), QKeySequence::Quit, &DesignerActions::closeWindow);
}

void DesignerActions::addWorkMenus(QMenuBar& bar, FieldConversion conversion) {
    QMenu& structure = *bar.addMenu(tr("S&tructure"));
    add(structure, tr("&Load XML…"), QKeySequence(tr("Ctrl+L")), &DesignerActions::loadStructure);
    recentStructures_ = structure.addMenu(tr("Load &Recent"));
    structure.addSeparator();
    add(structure, tr("Open &Database…"), QKeySequence(tr("Ctrl+Shift+L")), &DesignerActions::openDatabase);
    readAgain_ = add(structure, tr("Read Database &Anew"), {}, &DesignerActions::readDatabaseAgain);
    setDatabaseAvailable(false);
    QMenu& fields = *bar.addMenu(tr("&Fields"));
    addForDocument(fields, tr("Insert &Node"), QKeySequence(tr("Ctrl+Return")), &DesignerActions::insertNode);
    forDocument_.back()->setShortcuts({QKeySequence(tr("Ctrl+Return")), QKeySequence(tr("Ctrl+Enter"))});
    showPlaces_ = fields.addAction(tr("&Show Places"));
    showPlaces_->setCheckable(true);
    showPlaces_->setChecked(true);
    connect(showPlaces_, &QAction::toggled, this, &DesignerActions::placesToggled);
    forDocument_.push_back(showPlaces_);
    if (conversion == FieldConversion::Missing) return;
    addForDocument(fields, tr("Convert &Merge Fields"), {}, &DesignerActions::convertFields);
}

void DesignerActions::addPreviewMenu(QMenuBar& bar) {
    QMenu& records = *bar.addMenu(tr("&Records"));
    preview_ = records.addAction(tr("Pre&view"));
    preview_->setShortcut(QKeySequence(tr("F5")));
    preview_->setCheckable(true);
    connect(preview_, &QAction::triggered, this, &DesignerActions::preview);
    forDocument_.push_back(preview_);
    forPreview_ = {
        add(records, tr("&Next Record"), QKeySequence(tr("Alt+Right")), &DesignerActions::nextRecord),
        add(records, tr("Pr&evious Record"), QKeySequence(tr("Alt+Left")), &DesignerActions::previousRecord)};
}

void DesignerActions::addProgramMenu(QMenuBar& bar) {
    QMenu& program = *bar.addMenu(tr("Mer&geloom"));
    add(program, tr("Help &Contents"), {}, &DesignerActions::helpContents);
    add(program, tr("Help &Index"), {}, &DesignerActions::helpIndex);
    add(program, tr("Help &Search"), {}, &DesignerActions::helpSearch);
    program.addSeparator();
    add(program, tr("&About"), {}, &DesignerActions::about)->setMenuRole(QAction::AboutRole);
}

QAction* DesignerActions::add(QMenu& menu, const QString& text, const QKeySequence& keys, Signal signal) {
    QAction* const action = menu.addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, signal);
    return action;
}

void DesignerActions::addForDocument(QMenu& menu, const QString& text, const QKeySequence& keys,
                                     Signal signal) {
    forDocument_.push_back(add(menu, text, keys, signal));
}

bool DesignerActions::showsPlaces() const {
    return showPlaces_->isChecked();
}

void DesignerActions::setDocumentAvailable(bool isAvailable) {
    for (QAction* const action : forDocument_)
        action->setEnabled(isAvailable);
}

void DesignerActions::setDatabaseAvailable(bool isAvailable) {
    readAgain_->setEnabled(isAvailable);
}

void DesignerActions::setPreviewing(bool isPreviewing) {
    preview_->setChecked(isPreviewing);
    for (QAction* const action : forPreview_)
        action->setEnabled(isPreviewing);
}

}  // namespace mergeloom
