#pragma once

#include "app/LetterPreview.h"
#include "ui/designer/DropFlow.h"

#include <QString>
#include <string>

namespace mergeloom {

class TreeNode;

/// The tree of the structure document, as far as the status line speaks of it.
enum class StructureState { Missing, Shown };

/// Returns the sentence that tells the user what to do next.
QString nextStep(StructureState structure);
/// Returns a sentence about the records that a preview shows.
QString previewSentence(const PreviewedRecords& records);
/// Returns the sentence about a node that was inserted, with its place; it names the object that the node is
/// part of.
QString insertedSentence(const TreeNode& node, const std::string& place);
/// Returns the sentence about a drop that inserted nothing, with the reason if it is known. The node is the
/// selected one, or none.
QString nothingInserted(const TreeNode* node, StructureState structure, DropRefusal refusal);
/// Returns the text about a place that comes from a node: the node, the control around it and the object.
QString sourceSentence(const TreeNode& node);
/// Returns the sentence about a drag that ended beside the document.
QString droppedBeside();

}  // namespace mergeloom
