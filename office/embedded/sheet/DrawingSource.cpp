#include "office/embedded/sheet/DrawingSource.h"

#include "base/AutomationError.h"
#include "office/embedded/parts/DrawingPicture.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/PartName.h"
#include "office/opc/XmlPart.h"

#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr const char* kDrawingSection = "drawing";
constexpr const char* kContentType = "application/vnd.openxmlformats-officedocument.drawing+xml";

/// "/xl/" for "/xl/worksheets/sheet1.xml": the folder that contains the folders of drawings and of pictures.
std::string folderAround(const std::string& sheetPart) {
    const std::string_view folder = opc::folderOf(sheetPart);
    return std::string(opc::folderOf(folder.substr(0, folder.size() - 1)));
}

/// Returns the relationship's id that an element of a sheet names, regardless of the prefix.
std::string idIn(pugi::xml_node element) {
    for (const pugi::xml_attribute attribute : element.attributes()) {
        if (std::string_view(attribute.name()).ends_with(":id")) return attribute.value();
    }
    return {};
}

std::string emptyDrawing(opc::Conformance conformance) {
    const DrawingNamespaces& namespaces = drawingNamespaces(conformance);
    return R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
           "\n<xdr:wsDr xmlns:xdr=\"" +
           std::string(namespaces.sheetDrawing) + "\" xmlns:a=\"" + namespaces.main + "\"></xdr:wsDr>";
}

}  // namespace

DrawingSource::DrawingSource(opc::Package& package, SheetPart& sheet, PictureParts& pictures, UndoLog& undo)
    : package_(package), sheet_(sheet), pictures_(pictures), undo_(undo) {}

DrawingPart* DrawingSource::find() {
    if (!part_) load();
    return part_.get();
}

DrawingPart& DrawingSource::findOrCreate() {
    if (find() == nullptr) create();
    return *part_;
}

bool DrawingSource::isDirty() const {
    return part_ && part_->state().isDirty();
}

void DrawingSource::store() {
    if (!isDirty()) return;
    package_.writePart(part_->xml().partName(), part_->xml().toXml());
    part_->state().setStored();
}

void DrawingSource::load() {
    const SheetSection section(sheet_, kDrawingSection);
    if (!section.root()) return;
    const opc::Relationships& relationships = package_.relationshipsOf(sheet_.partName());
    const opc::Relationship* const relationship = relationships.find(idIn(section.root()));
    if (relationship == nullptr || relationship->mode != opc::TargetMode::Internal) {
        throw AutomationError(kFileCouldNotBeRead, "The file '" + package_.fileName() +
                                                       "' is damaged: the drawing of its part " +
                                                       sheet_.partName() + " is missing.");
    }
    const std::string name = relationships.targetPart(*relationship);
    std::unique_ptr<opc::XmlPart> xml =
        opc::XmlPart::parse(package_.readPart(name), name, package_.fileName());
    if (opc::localName(xml->root()) != "wsDr") {
        throw AutomationError(kFileCouldNotBeRead, "The file '" + package_.fileName() +
                                                       "' is damaged: its part " + name + " is no drawing.");
    }
    part_ = std::make_unique<DrawingPart>(std::move(xml), lastShape_, undo_);
}

void DrawingSource::create() {
    const opc::Conformance conformance =
        sheet_.isStrict() ? opc::Conformance::Strict : opc::Conformance::Transitional;
    const std::string name = freePartName();
    const std::string xml = emptyDrawing(conformance);
    package_.addPart(name, kContentType, xml);
    const std::string id = package_.relationshipsOf(sheet_.partName())
                               .addPart(opc::officeRelationshipType(kDrawingSection, conformance), name);
    undo_.record([this, name, id] {
        part_.reset();
        package_.relationshipsOf(sheet_.partName()).remove(id);
        package_.removePart(name);
    });
    const std::string prefix = sheet_.declareNamespace("r", drawingNamespaces(conformance).relationships);
    sheet_.setSection(kDrawingSection,
                      "<" + sheet_.elementName(kDrawingSection) + " " + prefix + ":id=\"" + id + "\"/>");
    part_ =
        std::make_unique<DrawingPart>(opc::XmlPart::parse(xml, name, package_.fileName()), lastShape_, undo_);
}

std::string DrawingSource::freePartName() const {
    const std::string stem = folderAround(sheet_.partName()) + "drawings/drawing";
    for (int number = 1;; ++number) {
        std::string name = stem + std::to_string(number) + ".xml";
        if (!package_.hasPart(name)) return name;
    }
}

std::string DrawingSource::addRelationship(DrawingPart& drawing, std::string bytes,
                                           const opc::PictureFile& picture) {
    const std::string& source = drawing.xml().partName();
    const std::string folder = folderAround(sheet_.partName()) + "media/";
    std::string id = pictures_.add(source, folder, std::move(bytes), picture);
    undo_.record([this, &drawing, source, id] {
        if (drawing.uses(id) == 0) (void)pictures_.release(source, id);
    });
    return id;
}

void DrawingSource::releasePictures(DrawingPart& drawing, DrawingPart::ShapeId shape) {
    const opc::Relationships& relationships = package_.relationshipsOf(drawing.xml().partName());
    for (const std::string& id : drawing.usedOnlyBy(shape)) {
        const opc::Relationship* const relationship = relationships.find(id);
        const bool isPicture = relationship != nullptr && relationship->mode == opc::TargetMode::Internal &&
                               opc::officeShortName(relationship->type) == "image";
        if (isPicture) releasePicture(relationships.sourcePart(), id);
    }
}

void DrawingSource::releasePicture(const std::string& source, const std::string& relationshipId) {
    ReleasedPicture released = pictures_.release(source, relationshipId);
    undo_.record([this, source, released = std::move(released)] { pictures_.restore(source, released); });
}

}  // namespace mergeloom::embedded
