#pragma once
// Text in memory is UTF-8. Files come in their own charsets: these routines
// decode them on reading and encode on writing ("?" for what a charset lacks).
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

// Code points of a UTF-8 text; a byte that is not valid UTF-8 counts as the
// Latin-1 character of its code, so that no input is ever lost.
std::vector<char32_t> Utf8CodePoints(std::string_view text);
void AppendUtf8(std::string& out, char32_t c);
// The first n characters (code points) of a UTF-8 text.
std::string_view Utf8Left(std::string_view text, size_t n);
bool IsValidUtf8(std::string_view text);

enum class Charset { Utf8, Latin1, Windows1252 };

// Names as XML declarations give them; unknown names count as UTF-8.
Charset CharsetFromName(std::string_view name);
std::string DecodeToUtf8(std::string_view bytes, Charset cs);
std::string EncodeFromUtf8(std::string_view text, Charset cs);

}  // namespace ortelix
