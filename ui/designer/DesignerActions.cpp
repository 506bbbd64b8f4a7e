#include "ui/designer/DesignerActions.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace mergeloom {

DesignerActions::DesignerActions(QMenuBar& bar, FieldConversion conversion) : QObject(&bar) {
    addFileMenu(bar);
    addWorkMenus(bar, conversion);
    addHelpMenu(bar);
    setDocumentAvailable(false);
}

void DesignerActions::addFileMenu(QMenuBar& bar) {
    QMenu& file = *bar.addMenu(tr("&File"));
    addForDocument(file, tr("&New"), QKeySequence::New, &DesignerActions::newTemplate);
    addForDocument(file, tr("&Open…"), QKeySequence::Open, &DesignerActions::open);
    recentTemplates_ = file.addMenu(tr("Open &Recent"));
    file.addSeparator();
    addForDocument(file, tr("&Save"), QKeySequence::Save, &DesignerActions::save);
    addForDocument(file, tr("Save &As…"), QKeySequence(tr("Ctrl+Shift+S")), &DesignerActions::saveAs);
    file.addSeparator();
    add(file, tr("&Close"), QKeySequence::Quit, &DesignerActions::closeWindow);
}

void DesignerActions::addWorkMenus(QMenuBar& bar, FieldConversion conversion) {
    QMenu& structure = *bar.addMenu(tr("S&tructure"));
    add(structure, tr("&Load XML…"), QKeySequence(tr("Ctrl+L")), &DesignerActions::loadStructure);
    recentStructures_ = structure.addMenu(tr("Load &Recent"));
    QMenu& insert = *bar.addMenu(tr("&Insert"));
    addForDocument(insert, tr("Insert &Node"), QKeySequence(tr("Ctrl+Return")), &DesignerActions::insertNode);
    forDocument_.back()->setShortcuts({QKeySequence(tr("Ctrl+Return")), QKeySequence(tr("Ctrl+Enter"))});
    if (conversion == FieldConversion::Missing) return;
    QMenu& tools = *bar.addMenu(tr("T&ools"));
    addForDocument(tools, tr("Convert &Merge Fields"), {}, &DesignerActions::convertFields);
}

void DesignerActions::addHelpMenu(QMenuBar& bar) {
    QMenu& help = *bar.addMenu(tr("&Help"));
    add(help, tr("&Contents"), {}, &DesignerActions::helpContents);
    add(help, tr("&Index"), {}, &DesignerActions::helpIndex);
    add(help, tr("&Search"), {}, &DesignerActions::helpSearch);
    help.addSeparator();
    add(help, tr("&About"), {}, &DesignerActions::about)->setMenuRole(QAction::AboutRole);
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

void DesignerActions::setDocumentAvailable(bool isAvailable) {
    for (QAction* const action : forDocument_)
        action->setEnabled(isAvailable);
}

}  // namespace mergeloom
