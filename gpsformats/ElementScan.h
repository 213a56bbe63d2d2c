#pragma once
// The element scan of the XML-like formats: no parser, one walk over the
// lower-cased text. Positions index the lower-cased and the original text
// alike, since lower-casing keeps every byte in place.
#include <string>
#include <string_view>

namespace ortelix {

struct Element {
    size_t begin = 0;  // behind "<tag": attributes, ">" and the content
    size_t end = 0;    // at "</tag>"
    size_t next = 0;   // behind the closing tag; the text's length when none was found
    bool found = false;
    size_t contentBegin() const { return begin; }
};

// ASCII lower case of the whole text, byte for byte.
std::string LowerAscii(std::string_view text);

// The next element `tag` (lower case) in lower[start, scopeEnd): the opening
// tag is "<tag" followed by " ", ">" or "/"; the closing tag is "</tag>".
// A start tag that closes itself ("<wpt .../>") is an element without content.
Element GetElement(std::string_view lower, std::string_view tag, size_t start, size_t scopeEnd);

// The inner text of an element (behind the ">" of its start tag).
std::string_view InnerText(std::string_view text, const Element& e);
// The start tag's attribute text, between "<tag" and ">".
std::string_view StartTag(std::string_view text, const Element& e);
// The value of an attribute in a start tag; found=false when missing.
std::string_view AttributeValue(std::string_view lowerTag, std::string_view tag, std::string_view name, bool& found);

// Replaces the five XML entities and numeric character references.
std::string DecodeEntities(std::string_view text);

}  // namespace ortelix
