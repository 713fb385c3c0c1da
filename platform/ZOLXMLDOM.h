// DOM services of the platform: a document builder, documents, nodes, elements.
//
// Ownership: a ZOLIDOMDocument holds its tree through a shared pointer; copies share it and the
// last one frees it. Nodes, elements and node lists are plain handles into a tree: they stay valid
// while a document handle of their tree lives, and hold nothing themselves. Names, URIs and texts
// come back as UTF-8 views into the tree, valid while the tree lives and the node is unchanged.
#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "ZOLListValZOLUnicodeString.h"
#include "ZOLResult.h"

class ZOLIXMLInputSource;
// Nodes and documents of the underlying tree, opaque outside the platform.
struct ZOLDOMRawNode;
struct ZOLDOMRawDocument;

class ZOLIDOMNodeList;

/// A node of a tree, or null.
class ZOLIDOMNode {
public:
  /// Node types, numbered as in DOM.
  enum NodeType {
    UNKNOWN_NODE = 0,
    ELEMENT_NODE = 1,
    ATTRIBUTE_NODE = 2,
    TEXT_NODE = 3,
    CDATA_SECTION_NODE = 4,
    ENTITY_REFERENCE_NODE = 5,
    ENTITY_NODE = 6,
    PROCESSING_INSTRUCTION_NODE = 7,
    COMMENT_NODE = 8,
    DOCUMENT_NODE = 9,
    DOCUMENT_TYPE_NODE = 10,
    DOCUMENT_FRAGMENT_NODE = 11,
    NOTATION_NODE = 12,
  };

  /// A null handle.
  ZOLIDOMNode() = default;
  /// A handle on a node of the underlying tree (null stays null).
  explicit ZOLIDOMNode(ZOLDOMRawNode* node) : _node(node) {}

  /// 1 for the null handle.
  bool IsNull() const { return _node == nullptr; }
  explicit operator bool() const { return _node != nullptr; }
  /// The node's type; UNKNOWN_NODE for null and for kinds DOM has no number for.
  NodeType GetNodeType() const;
  /// The qualified name of an element ("std:node"), or the name libxml2 gives other nodes ("text"); E_FAIL on null.
  HRESULT GetNodeName(std::string& name) const;
  /// The local name of an element (empty when the document was read without namespaces); E_FAIL on null.
  HRESULT GetLocalName(std::string_view& name) const;
  /// The namespace URI of an element (empty for none); E_FAIL on null.
  HRESULT GetNamespaceURI(std::string_view& uri) const;
  /// The text of a text, CDATA or comment node (empty for other kinds); E_FAIL on null.
  HRESULT GetNodeValue(std::string_view& value) const;
  /// The parent (null for the document); E_FAIL on null.
  HRESULT GetParentNode(ZOLIDOMNode& parent) const;
  /// The list of the children; E_FAIL on null.
  HRESULT GetChildNodes(ZOLIDOMNodeList& children) const;
  /// Appends a node that has no parent yet, of the same document; E_INVALIDARG otherwise, E_FAIL on null.
  HRESULT AppendChild(const ZOLIDOMNode& child);

  /// The node of the underlying tree, for the platform's own use.
  ZOLDOMRawNode* Raw() const { return _node; }
  friend bool operator==(const ZOLIDOMNode& a, const ZOLIDOMNode& b) { return a._node == b._node; }

protected:
  ZOLDOMRawNode* _node = nullptr;
};

/// An element node, or null.
class ZOLIDOMElement : public ZOLIDOMNode {
public:
  /// A null handle.
  ZOLIDOMElement() = default;
  /// The node as an element; null when it is none.
  explicit ZOLIDOMElement(const ZOLIDOMNode& node);

  /// The value of an attribute by namespace URI and local name, an empty URI standing for an
  /// attribute without namespace; S_OK when present, S_FALSE (value emptied) when absent, E_FAIL on
  /// null and (value emptied) when the value holds an entity reference, which is never expanded.
  HRESULT GetAttributeNS(std::string_view uri, std::string_view localName, std::string& value) const;
  /// 1 when the attribute (same rule as GetAttributeNS) is present.
  bool HasAttributeNS(std::string_view uri, std::string_view localName) const;
  /// Sets an attribute without namespace by its name, or declares a namespace when the name is
  /// "xmlns" or "xmlns:prefix"; S_OK, E_INVALIDARG for a name that is no XML name or a value that
  /// ZOLXMLTextFault refuses, E_FAIL on null.
  HRESULT SetAttribute(std::string_view qualifiedName, std::string_view value);
};

/// The children of a node, by 0-based index; sequential access costs O(1) a step.
class ZOLIDOMNodeList {
public:
  /// An empty list.
  ZOLIDOMNodeList() = default;
  /// The children of node (a null list for a null node or an entity reference).
  explicit ZOLIDOMNodeList(ZOLDOMRawNode* parent);
  /// 1 for a list of no node.
  bool IsNull() const { return _parent == nullptr; }
  /// Number of children, as counted when the list was taken.
  int GetLength() const { return _length; }
  /// The child at a 0-based index; E_INVALIDARG out of range.
  HRESULT Item(int index, ZOLIDOMNode& node) const;

private:
  ZOLDOMRawNode* _parent = nullptr;
  int _length = 0;
  mutable int _cursorIndex = -1;
  mutable ZOLDOMRawNode* _cursor = nullptr;
};

/// A document; copies share the tree.
class ZOLIDOMDocument {
public:
  /// A null handle.
  ZOLIDOMDocument() = default;
  /// Takes ownership of a document of the underlying tree (null stays null).
  explicit ZOLIDOMDocument(ZOLDOMRawDocument* doc);

  /// 1 for the null handle.
  bool IsNull() const { return !_holder; }
  /// The document element (null when there is none); E_FAIL on null.
  HRESULT GetDocumentElement(ZOLIDOMElement& element) const;
  /// A new element without parent (freed with the document if never appended); the prefix of a qualified name is bound to uri, reusing a
  /// declaration of the document element when there is one; S_OK, E_INVALIDARG (a name that is no XML name among them), E_FAIL on null.
  HRESULT CreateElementNS(std::string_view uri, std::string_view qualifiedName, ZOLIDOMElement& element);
  /// A new text node without parent (freed with the document if never appended); S_OK, E_INVALIDARG
  /// for text that ZOLXMLTextFault refuses, E_FAIL.
  HRESULT CreateTextNode(std::string_view text, ZOLIDOMNode& node);
  /// Makes an element the document element; E_INVALIDARG when there is one already or it is no element.
  HRESULT AppendChild(const ZOLIDOMNode& child);

  /// The document of the underlying tree, for the platform's own use.
  ZOLDOMRawDocument* Raw() const;

private:
  // The tree, and the nodes created for it, which go with it if they were never appended.
  struct Holder;
  std::shared_ptr<Holder> _holder;
};

using ZOLIDOMNode_var = ZOLIDOMNode;
using ZOLIDOMElement_var = ZOLIDOMElement;
using ZOLIDOMNodeList_var = ZOLIDOMNodeList;
using ZOLIDOMDocument_var = ZOLIDOMDocument;

/// Builder option: "true" validates against the document's own DTD (never loaded from outside); default "false".
inline constexpr std::string_view ZOLDOMOptionDoValidation = "ZOLDoValidation";
/// Builder option: "true" (default) reads namespaces; "false" gives elements their qualified name only.
inline constexpr std::string_view ZOLDOMOptionEnableNameSpaces = "ZOLEnableNameSpaces";
/// Writer option: "true" (default) indents elements that hold no text; "false" writes the tree as it is.
inline constexpr std::string_view ZOLDOMOptionPrettyPrint = "ZOLFormatPrettyPrint";

/// Reads and writes documents over libxml2 with network access and DTD loading off. A document that
/// declares an entity, or refers to one that is neither predefined nor a character reference, is
/// refused. Options come as two parallel lists of names and values ("true" or "false").
class ZOLIXMLDOMDocumentBuilder {
public:
  virtual ~ZOLIXMLDOMDocumentBuilder() = default;
  /// Replaces names by the option names the builder and the writer understand.
  virtual HRESULT GetSupportedOptions(ZOLListValZOLUnicodeString& names) = 0;
  /// Reads a file; S_OK, E_FAIL for an unreadable or malformed document, E_INVALIDARG for a bad option.
  virtual HRESULT BuildDocumentFromFile(std::string_view path, const ZOLListValZOLUnicodeString& names,
                                        const ZOLListValZOLUnicodeString& values, ZOLIDOMDocument& document) = 0;
  /// Reads an input source of the SAX factory, text or file; results as BuildDocumentFromFile.
  virtual HRESULT BuildDocumentFromSource(const ZOLIXMLInputSource& source, const ZOLListValZOLUnicodeString& names,
                                          const ZOLListValZOLUnicodeString& values, ZOLIDOMDocument& document) = 0;
  /// A new empty document; S_OK or E_FAIL.
  virtual HRESULT CreateDocument(ZOLIDOMDocument& document) = 0;
  /// Writes a document as UTF-8 through a temporary file and a rename; a failure leaves the old
  /// file as it was. S_OK, E_FAIL, E_INVALIDARG for a bad option.
  virtual HRESULT WriteToFile(const ZOLIDOMDocument& document, std::string_view path,
                              const ZOLListValZOLUnicodeString& names, const ZOLListValZOLUnicodeString& values) = 0;
  /// Writes a document as UTF-8 text; S_OK, E_FAIL, E_INVALIDARG for a bad option.
  virtual HRESULT WriteToString(const ZOLIDOMDocument& document, std::string& text,
                                const ZOLListValZOLUnicodeString& names, const ZOLListValZOLUnicodeString& values) = 0;
  /// The first problem of the last failed call ("system id:line: message"), empty after a success.
  virtual const std::string& GetLastError() const = 0;
};

/// The longest text or attribute value, in bytes once decoded, that the readers take back. Both
/// read with libxml2's "huge" option, so that values beyond its default bound of 10 MB read back;
/// what that option would otherwise open to, entity amplification, the readers refuse whole.
inline constexpr size_t ZOLXMLMaxTextLength = 1000000000;
/// Why text cannot be written as character data or as an attribute value and read back ("invalid
/// UTF-8", a character XML 1.0 cannot hold, such as NUL or another control character than tab,
/// line feed and carriage return, or a length over ZOLXMLMaxTextLength); null when it can.
const char* ZOLXMLTextFault(std::string_view text);
/// The message of both readers, the DOM builder and the SAX reader, for a document that declares
/// an entity: entities are refused whole, declared ones before any of them could be expanded.
std::string ZOLXMLEntityDeclaredMessage(std::string_view name);

/// A document builder; S_OK or E_FAIL.
HRESULT CreateZOLIXMLDOMDocumentBuilder(std::unique_ptr<ZOLIXMLDOMDocumentBuilder>& builder);

/// Prepares libxml2 once for the process: initialises it and lifts its depth bound, since every
/// walker of the platform and of libxml2 itself is iterative. Called by every entry point.
void ZOLXMLInitialize();
