#include "xml/StructureReader.h"

#include "xml/NodeBuilder.h"
#include "xml/XmlEncodings.h"
#include "xml/modNamedItems.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace mergeloom {

namespace {

// Entities are replaced, so that a text reads as its author intended. This option alone would allow external
// ones, which the reader itself refuses. The parser's limits of text length and depth are off in favour of
// the document's own; that also disables its limit of entities, so they are counted here.
constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_HUGE;
/// The number of array items by which the parser reports one attribute.
constexpr int kAttributeFields = 5;

// The factor by which entities may enlarge a document. Text in an encoding of one byte a character may become
// three times as long without any entity.
constexpr std::size_t kMaxExpansion = 10;
constexpr std::size_t kAlwaysAllowedSize = std::size_t{1} << 20;
/// The cost of a reference besides the entity's length: references to empty entities take time, too.
constexpr std::size_t kReferenceSize = 16;

struct ContextDeleter {
    void operator()(xmlParserCtxt* context) const {
        xmlFreeDoc(context->myDoc);
        xmlFreeParserCtxt(context);
    }
};

const char* chars(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

std::string_view textOf(const xmlChar* text, int length) {
    return {chars(text), static_cast<std::size_t>(length)};
}

/// Routes the errors that the parser raises without a context (bytes that its encoding lacks) away from the
/// standard error stream, and restores what was set before.
class ErrorRoute {
  public:
    ErrorRoute(void* receiver, xmlStructuredErrorFunc function)
        : formerReceiver_(xmlStructuredErrorContext), formerFunction_(xmlStructuredError) {
        xmlSetStructuredErrorFunc(receiver, function);
    }
    ErrorRoute(const ErrorRoute&) = delete;
    ErrorRoute& operator=(const ErrorRoute&) = delete;
    ~ErrorRoute() { xmlSetStructuredErrorFunc(formerReceiver_, formerFunction_); }

  private:
    void* formerReceiver_;
    xmlStructuredErrorFunc formerFunction_;
};

/// Passes a parser's events on to the builder of the tree, and those inside of Data elements to the builder
/// of records if there is one, to both if the data are kept.
class DataRoute {
  public:
    DataRoute(NodeBuilder& tree, const RecordHandler* records, DataUse use)
        : tree_(tree), keepsData_(use == DataUse::Kept) {
        if (records != nullptr) records_.emplace(*records);
    }

    void startElement(const StartTag& tag) {
        if (dataDepth_ == 0) {
            tree_.startElement(tag);
            ++depth_;
            if (records_ && structureElementOf(tag.localName) == StructureElement::Data) dataDepth_ = 1;
            return;
        }
        NodeBuilder::checkNesting(depth_ + dataDepth_);
        ++dataDepth_;
        if (keepsData_) tree_.startElement(tag);
        if (isLaterData_) return;
        records_->startElement(tag.localName);
        for (const StartTag::Attribute& attribute : tag.attributes)
            records_->addAttribute(attribute.localName, attribute.value);
    }
    void endElement() {
        if (dataDepth_ > 1) {
            --dataDepth_;
            if (keepsData_) tree_.endElement();
            if (!isLaterData_) records_->endElement();
            return;
        }
        // Only the first Data element counts.
        if (dataDepth_ == 1) isLaterData_ = true;
        dataDepth_ = 0;
        --depth_;
        tree_.endElement();
    }
    void addText(std::string_view text) {
        if (isForTree()) tree_.addText(text);
        addToRecords(text);
    }
    void addCData(std::string_view text) {
        if (isForTree()) tree_.addCData(text);
        addToRecords(text);
    }
    void addComment(const char* text) {
        if (isForTree()) tree_.addComment(text);
    }
    void addProcessingInstruction(const char* target, const char* data) {
        if (isForTree()) tree_.addProcessingInstruction(target, data);
    }
    /// Kept data are counted once.
    [[nodiscard]] std::size_t size() const {
        return tree_.size() + (records_ && !keepsData_ ? records_->size() : 0);
    }

  private:
    [[nodiscard]] bool isForTree() const { return dataDepth_ == 0 || keepsData_; }
    void addToRecords(std::string_view text) {
        if (dataDepth_ > 0 && !isLaterData_) records_->addText(text);
    }

    NodeBuilder& tree_;
    bool keepsData_;
    std::optional<RecordBuilder> records_;
    int depth_ = 0;      // of elements in the tree
    int dataDepth_ = 0;  // from a Data element on, which counts; 0 outside
    bool isLaterData_ = false;
};

/// Reads one document: receives the parser's events and passes them to the builder.
class StructureReader {
  public:
    /// Without a handler of records the data become a part of the tree.
    StructureReader(const ByteReader& bytes, pugi::xml_document& document, const RecordHandler* records,
                    DataUse use)
        : bytes_(bytes), builder_(document), data_(builder_, records, use), context_(xmlNewParserCtxt()) {
        if (!context_) throw std::bad_alloc();
        addXmlEncodings();
        context_->_private = this;
        setHandlers(*context_->sax);
    }

    ParseError read() {
        const ErrorRoute route(this, [](void* reader, xmlErrorPtr error) {
            static_cast<StructureReader*>(reader)->keepError(*error);
        });
        xmlDoc* const document =
            xmlCtxtReadIO(context_.get(), readBytes, nullptr, this, nullptr, nullptr, kOptions);
        xmlFreeDoc(document);
        if (unexpected_) std::rethrow_exception(unexpected_);
        if (document == nullptr && !failed()) refuse("It is not well-formed");
        return error_;
    }

  private:
    static void setHandlers(xmlSAXHandler& handlers);

    static StructureReader& of(void* context) {
        return *static_cast<StructureReader*>(static_cast<xmlParserCtxt*>(context)->_private);
    }

    /// Runs an event's handler. No exception may pass through the parser, and after the first error no event
    /// is handled.
    template <typename Body>
    static void handle(void* context, const Body& body) {
        StructureReader& reader = of(context);
        try {
            if (!reader.failed()) body(reader);
            reader.checkExpansion();
        } catch (const DocumentRefused& refusal) {
            reader.refuse(refusal.what());
        } catch (...) {
            reader.unexpected_ = std::current_exception();
        }
        // An entity's content is parsed in a context of its own; the document around it has to end, too.
        if (!reader.failed()) return;
        xmlStopParser(static_cast<xmlParserCtxt*>(context));
        xmlStopParser(reader.context_.get());
    }

    static int readBytes(void* receiver, char* buffer, int size) {
        auto& reader = *static_cast<StructureReader*>(receiver);
        try {
            const std::size_t count = reader.bytes_(buffer, static_cast<std::size_t>(size));
            reader.size_ += count;
            return static_cast<int>(count);
        } catch (...) {
            reader.unexpected_ = std::current_exception();
            return -1;
        }
    }

    void checkExpansion() const {
        const std::size_t expanded = std::max(data_.size(), referenced_);
        if (expanded <= kAlwaysAllowedSize || expanded / kMaxExpansion <= size_) return;
        throw DocumentRefused("Entities expand to more than " + std::to_string(kMaxExpansion) +
                              " times the document's size");
    }

    /// Refuses external entities; the parser itself reports unknown ones. Each use of the others is counted,
    /// since an attribute's value is expanded before it is reported.
    static xmlEntity* ownEntity(void* context, xmlEntity* entity) {
        if (entity == nullptr) return nullptr;
        const bool external = entity->etype == XML_EXTERNAL_GENERAL_PARSED_ENTITY ||
                              entity->etype == XML_EXTERNAL_PARAMETER_ENTITY;
        handle(context, [&](StructureReader& reader) {
            if (external) {
                throw DocumentRefused("The external entity '" + std::string(chars(entity->name)) +
                                      "' is not allowed");
            }
            reader.referenced_ += static_cast<std::size_t>(entity->length) + kReferenceSize;
        });
        return of(context).failed() ? nullptr : entity;
    }

    static void startElement(void* context, const xmlChar* localName, const xmlChar* prefix, const xmlChar*,
                             int, const xmlChar**, int attributeCount, int, const xmlChar** attributes) {
        handle(context, [&](StructureReader& reader) {
            reader.attributes_.clear();
            for (int i = 0; i < attributeCount; ++i, attributes += kAttributeFields) {
                const auto length = static_cast<int>(attributes[4] - attributes[3]);
                reader.attributes_.push_back(
                    {chars(attributes[1]), chars(attributes[0]), textOf(attributes[3], length)});
            }
            reader.data_.startElement({chars(prefix), chars(localName), reader.attributes_});
        });
    }

    /// Keeps the first error, since later ones are often only its consequences.
    void keepError(const xmlError& error) {
        if (failed() || error.level < XML_ERR_ERROR) return;
        std::string_view message = error.message == nullptr ? "It is not well-formed" : error.message;
        message = message.substr(0, message.find_last_not_of(" \n\r.") + 1);
        error_ = {std::string(message), error.line > 0 ? error.line : currentLine()};
    }

    void refuse(const std::string& reason) { error_ = {reason, currentLine()}; }

    [[nodiscard]] int currentLine() const { return xmlSAX2GetLineNumber(context_.get()); }

    [[nodiscard]] bool failed() const { return unexpected_ || !error_.reason.empty(); }

    const ByteReader& bytes_;
    NodeBuilder builder_;
    DataRoute data_;
    std::unique_ptr<xmlParserCtxt, ContextDeleter> context_;
    std::vector<StartTag::Attribute> attributes_;  // of the element that is started
    std::size_t size_ = 0;                         // the bytes read so far
    std::size_t referenced_ = 0;                   // the lengths of the entities that were used
    ParseError error_;
    std::exception_ptr unexpected_;
};

void StructureReader::setHandlers(xmlSAXHandler& handlers) {
    handlers.startElementNs = startElement;
    handlers.endElementNs = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
        handle(context, [](StructureReader& reader) { reader.data_.endElement(); });
    };
    handlers.characters = [](void* context, const xmlChar* text, int length) {
        handle(context, [&](StructureReader& reader) { reader.data_.addText(textOf(text, length)); });
    };
    handlers.ignorableWhitespace = handlers.characters;
    handlers.cdataBlock = [](void* context, const xmlChar* text, int length) {
        handle(context, [&](StructureReader& reader) { reader.data_.addCData(textOf(text, length)); });
    };
    handlers.comment = [](void* context, const xmlChar* text) {
        handle(context, [&](StructureReader& reader) { reader.data_.addComment(chars(text)); });
    };
    handlers.processingInstruction = [](void* context, const xmlChar* target, const xmlChar* data) {
        handle(context, [&](StructureReader& reader) {
            reader.data_.addProcessingInstruction(chars(target), chars(data));
        });
    };
    handlers.getEntity = [](void* context, const xmlChar* name) {
        return ownEntity(context, xmlSAX2GetEntity(context, name));
    };
    handlers.getParameterEntity = [](void* context, const xmlChar* name) {
        return ownEntity(context, xmlSAX2GetParameterEntity(context, name));
    };
    handlers.externalSubset = nullptr;
    handlers.serror = [](void* context, xmlErrorPtr error) { of(context).keepError(*error); };
}

}  // namespace

ParseError readStructure(const ByteReader& bytes, pugi::xml_document& document) {
    return StructureReader(bytes, document, nullptr, DataUse::Kept).read();
}

ParseError readStructure(const ByteReader& bytes, pugi::xml_document& document, const RecordHandler& records,
                         DataUse use) {
    return StructureReader(bytes, document, &records, use).read();
}

}  // namespace mergeloom
