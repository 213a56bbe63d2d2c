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
// For UTF-8 every valid sequence stays as it is and every other byte is read
// as its Windows-1252 character: a file that claims UTF-8 but was written by
// a single-byte program keeps its umlauts, and a mixed file its good parts.
std::string DecodeToUtf8(std::string_view bytes, Charset cs);
std::string EncodeFromUtf8(std::string_view text, Charset cs);

// UTF-16 files are told by their byte-order mark, or, for XML without one, by
// the "<" of the first character standing in 16 bits.
enum class Utf16Order { None, Little, Big };
Utf16Order DetectUtf16(std::string_view bytes);
// UTF-16 in the given order to UTF-8, without the byte-order mark. Surrogate
// pairs join into one character; a lone surrogate or an odd last byte becomes
// U+FFFD.
std::string DecodeUtf16(std::string_view bytes, Utf16Order order);

}  // namespace ortelix
