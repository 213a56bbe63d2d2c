#pragma once
// The element scan of the XML-like formats: no parser, one forward walk over
// the text. Tag names match without regard to case, so the text is never
// copied to lower case.
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

struct Element {
    size_t begin = 0;  // behind "<tag": attributes, ">" and the content
    size_t end = 0;    // at "</tag>"
    size_t next = 0;   // behind the closing tag; the text's length when none was found
    bool found = false;
};

// The next element `tag` (given in lower case) in text[start, scopeEnd): the
// opening tag is "<tag" followed by a blank, ">" or "/"; the closing tag is
// "</tag>". A start tag that closes itself ("<wpt .../>") is an element
// without content.
Element GetElement(std::string_view text, std::string_view tag, size_t start, size_t scopeEnd);

// An element and its first children of the given names in one walk: the
// same result as GetElement followed by a GetElement per child, for the
// point elements that make up nearly all of a large file.
Element GetElementWithChildren(std::string_view text, std::string_view tag, size_t start, size_t scopeEnd,
                               const std::string_view* names, std::string_view* values, size_t count);

// Element bounds from a list of known closing-tag positions (ascending),
// for outer elements whose closing tag lies far away.
Element GetElementIndexed(std::string_view text, std::string_view tag, size_t start, size_t scopeEnd,
                          const std::vector<size_t>& closings);

// The inner text of an element (behind the ">" of its start tag).
std::string_view InnerText(std::string_view text, const Element& e);
// The start tag's attribute text, between "<tag" and ">".
std::string_view StartTag(std::string_view text, const Element& e);
// The value of an attribute (name in lower case) in a start tag's text.
std::string_view AttributeValue(std::string_view tag, std::string_view name, bool& found);

// Replaces the five XML entities and numeric character references.
std::string DecodeEntities(std::string_view text);

}  // namespace ortelix
