#pragma once
// The element scan of the XML-like formats: no parser, one forward walk over
// the text. Tag names match without regard to case, so the text is never
// copied to lower case.
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
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

// A name (in lower case) made ready to be compared eight bytes at a time
// without regard to the case of its letters: its bytes, a mask that folds
// case where the name has a letter, and a mask of its length. Names longer
// than eight bytes are compared byte by byte.
struct Spelling {
    uint64_t bytes = 0, fold = 0, used = 0;
    constexpr Spelling() = default;
    constexpr explicit Spelling(std::string_view name) {
        for (size_t i = 0; i < name.size() && i < 8; ++i) {
            const auto c = static_cast<unsigned char>(name[i]);
            bytes |= uint64_t{c} << (8 * i);
            if (c >= 'a' && c <= 'z') fold |= uint64_t{0x20} << (8 * i);
            used |= uint64_t{0xFF} << (8 * i);
        }
    }
};

// The children wanted from a point element (names in lower case, at most
// 16), with the names that each first letter may begin, so that the walk
// through a point compares a tag with those names only.
class ChildNames {
public:
    static constexpr size_t kMax = 16;
    template <size_t N>
    constexpr explicit ChildNames(const std::string_view (&names)[N])
        : ChildNames(names, N, std::make_index_sequence<N>{}) {}
    constexpr size_t size() const { return count_; }
    constexpr std::string_view operator[](size_t i) const { return names_[i]; }
    constexpr const Spelling& spelling(size_t i) const { return spellings_[i]; }
    // The names (as bits) that a tag beginning with `c` may be; letters without regard to case.
    constexpr uint32_t startingWith(char c) const { return byLetter_[static_cast<unsigned char>(c) & 31]; }

private:
    template <size_t... I>
    constexpr ChildNames(const std::string_view* names, size_t n, std::index_sequence<I...>)
        : names_(names), count_(n), spellings_{Spelling(names[I])...} {
        static_assert(sizeof...(I) <= kMax, "at most 16 children");
        for (size_t i = 0; i < n; ++i) byLetter_[names[i][0] & 31] |= static_cast<uint16_t>(1u << i);
    }
    const std::string_view* names_;
    size_t count_;
    Spelling spellings_[kMax];
    uint16_t byLetter_[32] = {};
};

// An element and its first children of the given names in one walk: the
// same result as GetElement followed by a GetElement per child, for the
// point elements that make up nearly all of a large file. Bit i of
// `withMarkup` tells that values[i] holds a "<" (markup or CDATA); the others
// are plain text.
Element GetElementWithChildren(std::string_view text, std::string_view tag, size_t start, size_t scopeEnd,
                               const ChildNames& names, std::string_view* values, uint32_t& withMarkup);

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
// The values of several attributes in one walk over the tag, each as
// AttributeValue finds it.
void AttributeValues(std::string_view tag, const std::string_view* names, std::string_view* values, bool* found,
                     size_t count);

// Replaces the five XML entities and numeric character references.
std::string DecodeEntities(std::string_view text);

}  // namespace ortelix
