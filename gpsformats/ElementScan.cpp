#include "gpsformats/ElementScan.h"

#include <cstring>

#include "core/Charset.h"

namespace ortelix {

std::string LowerAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return out;
}

namespace {
size_t Find(std::string_view hay, std::string_view needle, size_t from, size_t to) {
    if (from >= to || to - from < needle.size()) return std::string_view::npos;
    const void* p = ::memmem(hay.data() + from, to - from, needle.data(), needle.size());
    return p ? static_cast<size_t>(static_cast<const char*>(p) - hay.data()) : std::string_view::npos;
}
}  // namespace

Element GetElement(std::string_view lower, std::string_view tag, size_t start, size_t scopeEnd) {
    Element e;
    scopeEnd = std::min(scopeEnd, lower.size());
    e.next = lower.size();
    char open[40];
    char close[42];
    if (tag.size() > 32) return e;
    open[0] = '<';
    std::memcpy(open + 1, tag.data(), tag.size());
    const std::string_view openTag(open, tag.size() + 1);
    close[0] = '<';
    close[1] = '/';
    std::memcpy(close + 2, tag.data(), tag.size());
    close[tag.size() + 2] = '>';
    const std::string_view closeTag(close, tag.size() + 3);

    size_t pos = start;
    while (true) {
        const size_t at = Find(lower, openTag, pos, scopeEnd);
        if (at == std::string_view::npos) return e;
        const size_t behind = at + openTag.size();
        if (behind >= scopeEnd) return e;
        const char c = lower[behind];
        if (c == ' ' || c == '>' || c == '/' || c == '\t' || c == '\r' || c == '\n') {
            const size_t close_at = Find(lower, closeTag, behind, scopeEnd);
            const size_t gt = Find(lower, ">", behind, scopeEnd);
            if (gt != std::string_view::npos && gt > behind && lower[gt - 1] == '/' &&
                (close_at == std::string_view::npos || gt < close_at)) {
                // <tag .../> : an element with attributes and no content
                e.begin = behind;
                e.end = gt + 1;
                e.next = gt + 1;
                e.found = true;
                return e;
            }
            if (close_at == std::string_view::npos) return e;
            e.begin = behind;
            e.end = close_at;
            e.next = close_at + closeTag.size();
            e.found = true;
            return e;
        }
        pos = at + 1;
    }
}

std::string_view InnerText(std::string_view text, const Element& e) {
    if (!e.found) return {};
    const size_t gt = text.find('>', e.begin);
    if (gt == std::string_view::npos || gt >= e.end) return {};
    return text.substr(gt + 1, e.end - gt - 1);
}

std::string_view StartTag(std::string_view text, const Element& e) {
    if (!e.found) return {};
    size_t gt = text.find('>', e.begin);
    if (gt == std::string_view::npos || gt > e.end) gt = e.end;
    return text.substr(e.begin, gt - e.begin);
}

std::string_view AttributeValue(std::string_view lowerTag, std::string_view tag, std::string_view name, bool& found) {
    found = false;
    size_t at = 0;
    while ((at = lowerTag.find(name, at)) != std::string_view::npos) {
        const bool startsWord = at == 0 || lowerTag[at - 1] == ' ' || lowerTag[at - 1] == '\t' ||
                                lowerTag[at - 1] == '\r' || lowerTag[at - 1] == '\n';
        size_t p = at + name.size();
        while (p < lowerTag.size() && lowerTag[p] == ' ') ++p;
        if (startsWord && p < lowerTag.size() && lowerTag[p] == '=') {
            ++p;
            while (p < lowerTag.size() && lowerTag[p] == ' ') ++p;
            if (p >= lowerTag.size() || (lowerTag[p] != '"' && lowerTag[p] != '\'')) return {};
            const char q = lowerTag[p];
            const size_t endq = lowerTag.find(q, p + 1);
            if (endq == std::string_view::npos) return {};
            found = true;
            return tag.substr(p + 1, endq - p - 1);
        }
        at += name.size();
    }
    return {};
}

std::string DecodeEntities(std::string_view t) {
    if (t.find('&') == std::string_view::npos) return std::string(t);
    std::string out;
    out.reserve(t.size());
    for (size_t i = 0; i < t.size();) {
        if (t[i] != '&') {
            out += t[i++];
            continue;
        }
        const size_t semi = t.find(';', i);
        if (semi == std::string_view::npos || semi - i > 10) {
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
