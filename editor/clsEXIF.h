#pragma once
// A read-only EXIF parser: the tags of IFD0, of the EXIF directory (tag
// 34665) and of the interoperability directory (tag 40965) in the first
// 4096 bytes of a photo. Nothing is ever written to the file, and nothing
// outside the bytes read is ever looked at.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

struct ExifTag {
    int32_t Tag = 0;
    std::string Name;
    int32_t Format = 0;      // the TIFF type
    int32_t Components = 0;  // the count
    uint32_t ValueOffset = 0;  // the entry's last 4 bytes as a number in the file's byte order
    std::string Text;        // the value as shown; empty when it lies outside the bytes read
};

// Tag numbers and their names: the built-in table, extended by "exif.ini".
class ExifNames {
public:
    ExifNames();  // the built-in table
    // Adds the lines "NUMBER=Name" of an exif.ini text; blank lines and lines
    // starting with ";" or "#" are skipped, and so is a line that is no such
    // pair. A number that has a name already gets the file's name.
    void AddIni(std::string_view text);
    // The name, or "Tag #" and the number.
    std::string Name(int32_t tag) const;
    size_t size() const { return entries_.size(); }

private:
    std::vector<std::pair<int32_t, std::string>> entries_;  // sorted by number
};

// The table of a program folder: built-in names plus its exif.ini, if any.
ExifNames LoadExifNames(const std::string& programFolder);

// How far the exif reader got with a photo.
enum class ExifState { NotRead, NoFile, NoExif, Defect, Read };

class clsEXIF {
public:
    explicit clsEXIF(ExifNames names = {});

    // Parses the photo at path. False when the file cannot be opened, holds
    // no "Exif" block in its first 4096 bytes, or its directories are
    // defective (outside the bytes, running past them, read twice); then
    // Problem() tells why in German. The tags read before a defect stay.
    bool ReadMetaInfo(const std::string& path);
    // The same over bytes already in memory (only their first 4096 are seen).
    bool ReadMetaInfoBytes(std::string_view bytes);

    // The Text of the first tag with that number, or "Tag N not found.".
    std::string TagValue(int32_t tag) const;
    std::string TagName(int32_t tag) const { return names_.Name(tag); }
    // "Name: Text" and CR LF per tag; or the reason no tag could be read.
    std::string AllTags() const;

    const std::vector<ExifTag>& Tags() const { return tags_; }
    bool BigEndian() const { return bigEndian_; }
    int32_t TiffBase() const { return tiffBase_; }
    ExifState State() const { return state_; }
    const std::string& Problem() const { return problem_; }

private:
    ExifNames names_;
    std::vector<ExifTag> tags_;
    bool bigEndian_ = false;
    int32_t tiffBase_ = 0;
    ExifState state_ = ExifState::NotRead;
    std::string problem_;
};

}  // namespace ortelix
