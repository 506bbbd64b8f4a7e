#pragma once

#include "base/Units.h"
#include "office/opc/Relationships.h"

#include <cstdint>
#include <pugixml.hpp>
#include <string>

/// The DrawingML of pictures that documents and workbooks share (ECMA-376 Part 1, 20.1, 20.2).
namespace mergeloom::embedded {

/// The namespaces of DrawingML (ECMA-376 Part 1, 20; Part 4, 9).
struct DrawingNamespaces {
    const char* main;
    const char* picture;
    const char* wordDrawing;
    const char* sheetDrawing;
    const char* relationships;
};

const DrawingNamespaces& drawingNamespaces(opc::Conformance conformance);

struct PictureRectangle {
    Emu left{};
    Emu top{};
    Emu width{};
    Emu height{};
};

/// Both append to the element of a picture, whose children have the given prefix ("pic:"). The prefix "a"
/// must be declared for the main namespace there.
void appendPictureFill(pugi::xml_node picture, const std::string& prefix, const std::string& relationshipId,
                       const DrawingNamespaces& namespaces);
void appendPictureShape(pugi::xml_node picture, const std::string& prefix, const PictureRectangle& rectangle);

/// Appends an element with a size: the attributes cx and cy.
void appendExtent(pugi::xml_node parent, const char* name, Emu width, Emu height);
/// Appends the element with the id and the name of a drawn object.
void appendIdentity(pugi::xml_node parent, const std::string& name, std::int64_t id,
                    const std::string& objectName);

}  // namespace mergeloom::embedded
