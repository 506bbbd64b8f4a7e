#include "ui/designer/StatusSentences.h"

#include "ui/designer/LoadedStructure.h"

#include <QCoreApplication>

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

}  // namespace

QString nextStep(StructureState structure) {
    return structure == StructureState::Shown
               ? Sentences::tr("Drag a field into the document, or press Insert.")
               : Sentences::tr("Load a structure document first.");
}

QString insertedSentence(const TreeNode& node) {
    const TreeNode& object = objectOf(node);
    if (&object == &node) return Sentences::tr("“%1” was inserted.").arg(textOf(node));
    return Sentences::tr("“%1” was inserted, from %2.").arg(textOf(node), textOf(object));
}

QString nothingInserted(const TreeNode* node, StructureState structure) {
    const QString nothing = Sentences::tr("Nothing was inserted.");
    if (structure == StructureState::Missing) return nothing + u' ' + nextStep(structure);
    return node == nullptr ? nothing + u' ' + Sentences::tr("Select a field in the tree first.") : nothing;
}

}  // namespace mergeloom
