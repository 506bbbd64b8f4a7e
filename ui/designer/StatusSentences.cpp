#include "ui/designer/StatusSentences.h"

#include "ui/designer/LoadedStructure.h"

#include <QCoreApplication>
#include <QStringList>

namespace mergeloom {

namespace {

/// Marks the sentences for translation.
struct Sentences {
    Q_DECLARE_TR_FUNCTIONS(StatusSentences)
};

QString textOf(const TreeNode& node) {
    return QString::fromStdString(node.Text());
}

const TreeNode& objectOf(const TreeNode& node) {
    const TreeNode* object = &node;
    while (object->Parent() != nullptr)
        object = object->Parent();
    return *object;
}

/// Returns the place with its preposition: "in the text", "in a header", "at Sheet1!B3".
QString textOfPlace(const std::string& place) {
    const QString name = QString::fromStdString(place);
    if (name == QLatin1String("body")) return Sentences::tr("in the text");
    if (name.contains(u'!')) return Sentences::tr("at %1").arg(name);
    // The number of the story is left out.
    const QString kind = name.left(name.lastIndexOf(u' '));
    return kind.startsWith(u'e') ? Sentences::tr("in an %1").arg(kind) : Sentences::tr("in a %1").arg(kind);
}

QString reasonFor(const TreeNode* node, StructureState structure, DropRefusal refusal) {
    if (structure == StructureState::Missing) return nextStep(structure);
    if (node == nullptr) return Sentences::tr("Select a field in the tree first.");
    switch (refusal) {
        case DropRefusal::NotDraggable:
            return Sentences::tr("“%1” only holds other nodes; insert one of them.").arg(textOf(*node));
        case DropRefusal::NoText:
            return Sentences::tr("There is no text and no cell at that place.");
        case DropRefusal::ReadOnly:
            return Sentences::tr("The template is open for reading only.");
        case DropRefusal::Preview:
            return Sentences::tr("Press F5 to return from the preview to the template first.");
        case DropRefusal::NothingChosen:
            return Sentences::tr("No field was chosen.");
        case DropRefusal::None:
            return {};
    }
    return {};
}

}  // namespace

QString nextStep(StructureState structure) {
    return structure == StructureState::Shown
               ? Sentences::tr("Drag a field into the document, or press Insert.")
               : Sentences::tr("Load a structure document or open a database first.");
}

QString previewSentence(const PreviewedRecords& records) {
    if (records.areSamples)
        return Sentences::tr("Sample values: the structure document has no records for this template.");
    if (records.first == records.last)
        return Sentences::tr("Record %1 of %2").arg(records.first).arg(records.count);
    return Sentences::tr("Records %1 to %2 of %3").arg(records.first).arg(records.last).arg(records.count);
}

QString insertedSentence(const TreeNode& node, const std::string& place) {
    const TreeNode& object = objectOf(node);
    const QString inserted = Sentences::tr("“%1” was inserted %2").arg(textOf(node), textOfPlace(place));
    if (&object == &node) return inserted + u'.';
    return inserted + Sentences::tr(", from %1.").arg(textOf(object));
}

QString nothingInserted(const TreeNode* node, StructureState structure, DropRefusal refusal) {
    const QString nothing = Sentences::tr("Nothing was inserted.");
    const QString reason = reasonFor(node, structure, refusal);
    return reason.isEmpty() ? nothing : nothing + u' ' + reason;
}

QString sourceSentence(const TreeNode& node) {
    QStringList texts;
    for (const TreeNode* part = &node; part != nullptr; part = part->Parent())
        texts.prepend(textOf(*part));
    return texts.join(QStringLiteral(" › "));
}

QString droppedBeside() {
    return Sentences::tr("Nothing was inserted. Let the mouse go over the text of the document.");
}

}  // namespace mergeloom
