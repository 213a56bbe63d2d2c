#include "gpsformats/ElementScan.h"

#include <algorithm>
#include <cstring>

#include "core/Charset.h"
#include "core/ScanBytes.h"

namespace ortelix {

namespace {
inline char Lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

inline bool Delimiter(char c) { return c == ' ' || c == '>' || c == '/' || c == '\t' || c == '\r' || c == '\n'; }

// Does text[at..] spell `word` (lower case) without regard to case?
inline bool SpellsAt(std::string_view text, size_t at, std::string_view word) {
    if (at + word.size() > text.size()) return false;
    for (size_t i = 0; i < word.size(); ++i)
        if (Lower(text[at + i]) != word[i]) return false;
    return true;
}

// The same for a name of at most eight bytes, eight bytes at a time where
// the text has them. Equal to SpellsAt: a folded letter of the text is the
// name's letter exactly when it was that letter in either case.
inline bool SpellsAt(std::string_view text, size_t at, std::string_view word, const Spelling& s) {
    if (word.size() > 8 || at + 8 > text.size()) return SpellsAt(text, at, word);
    uint64_t x;
    std::memcpy(&x, text.data() + at, 8);
    return ((x | s.fold) & s.used) == s.bytes;
}

// "</tag>" at `at`, ending before `to`, for a prepared name.
inline bool ClosesAt(std::string_view text, size_t at, std::string_view tag, const Spelling& s, size_t to) {
    return at + tag.size() + 3 <= to && text[at + 1] == '/' && SpellsAt(text, at + 2, tag, s) &&
           text[at + 2 + tag.size()] == '>';
}

// The next "<" in [from, to); npos when none.
inline size_t NextOpen(std::string_view text, size_t from, size_t to) {
    if (from >= to) return std::string_view::npos;
    const char* p = FindByte(text.data() + from, text.data() + to, '<');
    return p ? static_cast<size_t>(p - text.data()) : std::string_view::npos;
}

// Is there "</tag>" at `at`, ending before `to`?
inline bool ClosesAt(std::string_view text, size_t at, std::string_view tag, size_t to) {
    return at + tag.size() + 3 <= to && text[at + 1] == '/' && SpellsAt(text, at + 2, tag) &&
           text[at + 2 + tag.size()] == '>';
}

// The next "</tag>" in [from, to). With a `stop` tag the search gives up at
// the first "</stop>": a child's closing tag is looked for only inside its
// own point, so a child left open costs the point's length, not the file's.
size_t FindClose(std::string_view text, std::string_view tag, size_t from, size_t to, std::string_view stop = {}) {
    for (size_t at = NextOpen(text, from, to); at != std::string_view::npos; at = NextOpen(text, at + 1, to)) {
        if (at + 3 > to) break;
        if (text[at + 1] != '/') continue;
        if (ClosesAt(text, at, tag, to)) return at;
        if (!stop.empty() && ClosesAt(text, at, stop, to)) break;
    }
    return std::string_view::npos;
}

// Completes an element whose start tag name ends at `behind`; `stop` as for FindClose.
Element Complete(std::string_view text, std::string_view tag, size_t behind, size_t scopeEnd,
                 std::string_view stop = {}) {
    Element e;
    e.next = text.size();
    const char* gtp = FindByte(text.data() + behind, text.data() + scopeEnd, '>');
    if (gtp) {
        const size_t gt = static_cast<size_t>(gtp - text.data());
        if (gt > behind && text[gt - 1] == '/') {  // <tag .../>
            e.begin = behind;
            e.end = gt + 1;
            e.next = gt + 1;
            e.found = true;
            return e;
        }
    }
    const size_t close = FindClose(text, tag, behind, scopeEnd, stop);
    if (close == std::string_view::npos) return e;
    e.begin = behind;
    e.end = close;
    e.next = close + tag.size() + 3;
    e.found = true;
    return e;
}
}  // namespace

Element GetElement(std::string_view text, std::string_view tag, size_t start, size_t scopeEnd) {
    scopeEnd = std::min(scopeEnd, text.size());
    for (size_t at = NextOpen(text, start, scopeEnd); at != std::string_view::npos; at = NextOpen(text, at + 1, scopeEnd)) {
        const size_t behind = at + 1 + tag.size();
        if (behind >= scopeEnd) break;
        if (SpellsAt(text, at + 1, tag) && Delimiter(text[behind])) return Complete(text, tag, behind, scopeEnd);
    }
    Element none;
    none.next = text.size();
    return none;
}

Element GetElementIndexed(std::string_view text, std::string_view tag, size_t start, size_t scopeEnd,
                          const std::vector<size_t>& closings) {
    scopeEnd = std::min(scopeEnd, text.size());
    Element e;
    e.next = text.size();
    for (size_t at = NextOpen(text, start, scopeEnd); at != std::string_view::npos; at = NextOpen(text, at + 1, scopeEnd)) {
        const size_t behind = at + 1 + tag.size();
        if (behind >= scopeEnd) break;
        if (!SpellsAt(text, at + 1, tag) || !Delimiter(text[behind])) continue;
        const char* gtp = FindByte(text.data() + behind, text.data() + scopeEnd, '>');
        const auto cut = std::lower_bound(closings.begin(), closings.end(), behind);
        const size_t close = cut == closings.end() ? std::string_view::npos : *cut;
        if (gtp) {
            const size_t gt = static_cast<size_t>(gtp - text.data());
            if (gt > behind && text[gt - 1] == '/' && (close == std::string_view::npos || gt < close)) {
                e.begin = behind;
                e.end = e.next = gt + 1;
                e.found = true;
                return e;
            }
        }
        if (close == std::string_view::npos || close + tag.size() + 3 > scopeEnd) return e;
        e.begin = behind;
        e.end = close;
        e.next = close + tag.size() + 3;
        e.found = true;
        return e;
    }
    return e;
}

Element GetElementWithChildren(std::string_view text, std::string_view tag, size_t start, size_t scopeEnd,
                               const ChildNames& names, std::string_view* values, uint32_t& withMarkup) {
    const size_t count = names.size();
    for (size_t i = 0; i < count; ++i) values[i] = {};
    withMarkup = 0;
    scopeEnd = std::min(scopeEnd, text.size());
    Element e;
    e.next = text.size();
    const Spelling tagSpelling(tag);
    size_t at = NextOpen(text, start, scopeEnd);
    for (; at != std::string_view::npos; at = NextOpen(text, at + 1, scopeEnd)) {
        const size_t behind = at + 1 + tag.size();
        if (behind >= scopeEnd) return e;
        if (SpellsAt(text, at + 1, tag, tagSpelling) && Delimiter(text[behind])) break;
    }
    if (at == std::string_view::npos) return e;
    const size_t behind = at + 1 + tag.size();
    const char* gtp = FindByte(text.data() + behind, text.data() + scopeEnd, '>');
    if (!gtp) return e;
    const size_t gt = static_cast<size_t>(gtp - text.data());
    if (gt > behind && text[gt - 1] == '/') {  // <tag .../> has no children
        e.begin = behind;
        e.end = e.next = gt + 1;
        e.found = true;
        return e;
    }
    // One walk to the closing tag, noting the first complete child of each
    // name. A child whose closing tag is not in the point is not looked for
    // again: a later one of the same name could only find less.
    const char* const t = text.data();
    size_t childEnd[ChildNames::kMax];
    uint32_t settled = 0;  // names found or given up
    // The walk starts behind the name, as the definition's searches do: a tag
    // inside an attribute value counts there too.
    for (size_t p = NextOpen(text, behind, scopeEnd); p != std::string_view::npos; p = NextOpen(text, p + 1, scopeEnd)) {
        if (p + 1 >= scopeEnd) break;
        if (t[p + 1] == '/') {
            if (ClosesAt(text, p, tag, tagSpelling, scopeEnd)) {
                e.begin = behind;
                e.end = p;
                e.next = p + tag.size() + 3;
                e.found = true;
                // A child counts only if it closed inside the element.
                for (size_t i = 0; i < count; ++i)
                    if (values[i].data() && childEnd[i] > p) values[i] = {};
                return e;
            }
            continue;
        }
        // Which wanted name is this tag? A name counts only with a delimiter
        // behind it ("<ele<" and "<elevation" are not "ele").
        size_t i = 0, len = 0;
        for (uint32_t maybe = names.startingWith(t[p + 1]) & ~settled; maybe != 0; maybe &= maybe - 1) {
            const size_t k = static_cast<size_t>(__builtin_ctz(maybe));
            const size_t n = names[k].size();
            if (p + 1 + n < scopeEnd && SpellsAt(text, p + 1, names[k], names.spelling(k)) && Delimiter(t[p + 1 + n])) {
                i = k;
                len = n;
                break;
            }
        }
        if (len == 0) continue;
        const size_t nameEnd = p + 1 + len;
        settled |= 1u << i;
        // The usual child: plain text straight up to its own closing tag. The
        // walk may then jump behind it, as long as no "<" stands in its start
        // tag either (a tag there is still a tag to the definition).
        const char* gtc = t[nameEnd] == '>' ? t + nameEnd : FindByte(t + nameEnd, t + scopeEnd, '>');
        const bool plainStart = gtc && (gtc == t + nameEnd || !FindByte(t + nameEnd, gtc, '<'));
        if (plainStart && gtc[-1] != '/') {
            const size_t from = static_cast<size_t>(gtc - t) + 1;
            const char* lt = FindByte(t + from, t + scopeEnd, '<');
            if (lt && ClosesAt(text, static_cast<size_t>(lt - t), names[i], names.spelling(i), scopeEnd)) {
                const size_t close = static_cast<size_t>(lt - t);
                values[i] = text.substr(from, close - from);
                childEnd[i] = close;
                p = close + len + 2;  // the walk goes on behind the closing tag
                continue;
            }
        }
        const Element c = Complete(text, names[i], nameEnd, scopeEnd, tag);
        if (!c.found) continue;  // given up
        const std::string_view inner = InnerText(text, c);
        values[i] = inner.data() ? inner : text.substr(c.end, 0);
        childEnd[i] = c.end;
        if (inner.data() && FindByte(inner.data(), inner.data() + inner.size(), '<') != nullptr) {
            withMarkup |= 1u << i;
        } else if (inner.data() && plainStart) {
            p = c.next - 1;  // a child that holds no tag: walk on behind it
        }
    }
    for (size_t i = 0; i < count; ++i) values[i] = {};
    withMarkup = 0;
    return e;
}

std::string_view InnerText(std::string_view text, const Element& e) {
    if (!e.found) return {};
    const char* gtp = FindByte(text.data() + e.begin, text.data() + e.end, '>');
    if (!gtp) return {};
    const size_t gt = static_cast<size_t>(gtp - text.data());
    return text.substr(gt + 1, e.end - gt - 1);
}

std::string_view StartTag(std::string_view text, const Element& e) {
    if (!e.found) return {};
    const char* gtp = FindByte(text.data() + e.begin, text.data() + e.end, '>');
    const size_t gt = gtp ? static_cast<size_t>(gtp - text.data()) : e.end;
    return text.substr(e.begin, gt - e.begin);
}

void AttributeValues(std::string_view tag, const std::string_view* names, std::string_view* values, bool* found,
                     size_t count) {
    size_t open = 0;  // names not yet settled, as bits
    for (size_t k = 0; k < count; ++k) {
        values[k] = {};
        found[k] = false;
        open |= size_t{1} << k;
    }
    const char* const begin = tag.data();
    const char* const end = begin + tag.size();
    // Each "=" in turn: is the word before it (blanks allowed) one of the
    // names? The first such "=" settles that name, with its value or without.
    for (const char* eq = FindByte(begin, end, '='); eq && open; eq = FindByte(eq + 1, end, '=')) {
        size_t wordEnd = static_cast<size_t>(eq - begin);
        while (wordEnd > 0 && tag[wordEnd - 1] == ' ') --wordEnd;
        for (size_t k = 0; k < count; ++k) {
            if (!(open >> k & 1) || wordEnd < names[k].size()) continue;
            const size_t at = wordEnd - names[k].size();
            if (!SpellsAt(tag, at, names[k])) continue;
            if (at > 0 && tag[at - 1] != ' ' && tag[at - 1] != '\t' && tag[at - 1] != '\r' && tag[at - 1] != '\n') continue;
            open &= ~(size_t{1} << k);
            size_t p = static_cast<size_t>(eq - begin) + 1;
            while (p < tag.size() && tag[p] == ' ') ++p;
            if (p >= tag.size() || (tag[p] != '"' && tag[p] != '\'')) break;
            const char* q = FindByte(begin + p + 1, end, tag[p]);
            if (!q) break;
            found[k] = true;
            values[k] = tag.substr(p + 1, static_cast<size_t>(q - begin) - p - 1);
            break;
        }
    }
}

std::string_view AttributeValue(std::string_view tag, std::string_view name, bool& found) {
    std::string_view value;
    AttributeValues(tag, &name, &value, &found, 1);
    return value;
}

std::string DecodeEntities(std::string_view t) {
    constexpr size_t kLongestReference = 11;  // "&" up to and with ";"
    if (t.find('&') == std::string_view::npos) return std::string(t);
    std::string out;
    out.reserve(t.size());
    for (size_t i = 0; i < t.size();) {
        if (t[i] != '&') {
            const char* amp = FindByte(t.data() + i, t.data() + t.size(), '&');
            const size_t to = amp ? static_cast<size_t>(amp - t.data()) : t.size();
            out.append(t.data() + i, to - i);
            i = to;
            continue;
        }
        // The longest reference ("&#x10FFFF;", "&#1114111;") is ten bytes: a
        // ";" further away ends no reference, so only that far is looked at.
        const size_t reach = std::min(t.size(), i + kLongestReference);
        const char* semip = FindByte(t.data() + i + 1, t.data() + reach, ';');
        const size_t semi = semip ? static_cast<size_t>(semip - t.data()) : std::string_view::npos;
        if (semi == std::string_view::npos) {
            out += t[i++];
            continue;
        }
        const std::string_view ent = t.substr(i + 1, semi - i - 1);
        char32_t code = 0;
        if (ent == "amp") code = '&';
        else if (ent == "lt") code = '<';
        else if (ent == "gt") code = '>';
        else if (ent == "quot") code = '"';
        else if (ent == "apos") code = '\'';
        else if (ent.size() > 1 && ent[0] == '#') {
            const bool hex = ent[1] == 'x' || ent[1] == 'X';
            for (size_t k = hex ? 2 : 1; k < ent.size(); ++k) {
                const char c = ent[k];
                int d;
                if (c >= '0' && c <= '9') d = c - '0';
                else if (hex && c >= 'a' && c <= 'f') d = c - 'a' + 10;
                else if (hex && c >= 'A' && c <= 'F') d = c - 'A' + 10;
                else { code = 0; break; }
                code = code * (hex ? 16 : 10) + static_cast<char32_t>(d);
                if (code > 0x10FFFF) { code = 0; break; }
            }
        }
        if (code == 0 || (code >= 0xD800 && code <= 0xDFFF)) {
            out += t[i++];
            continue;
        }
        AppendUtf8(out, code);
        i = semi + 1;
    }
    return out;
}

}  // namespace ortelix
