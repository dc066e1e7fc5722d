#pragma once

#include <zlib.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

namespace velda {

/// A number of a zip file, its low byte first.
inline std::uint32_t ZipNumber(const std::string& bytes, std::size_t at, int count) {
    std::uint32_t number = 0;
    while (count-- > 0)
        number = number << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(count)));
    return number;
}

/// Unpacks a deflated part of a known size.
inline std::string Inflated(const std::string& packed, std::size_t size) {
    std::string text(size + 1, '\0');
    z_stream stream{};
    inflateInit2(&stream, -MAX_WBITS);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    const int ended = inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    if (ended != Z_STREAM_END || stream.total_out != size) throw std::runtime_error("a damaged part of a zip file");
    text.resize(size);
    return text;
}

/// The parts of a zip file by name, read through the directory at its end. Throws for a file that is none.
inline std::map<std::string, std::string> ZipParts(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    const std::size_t end = bytes.rfind("PK\5\6");
    if (end == std::string::npos) throw std::runtime_error("no zip file");
    std::map<std::string, std::string> parts;
    std::size_t at = ZipNumber(bytes, end + 16, 4);
    for (std::uint32_t count = ZipNumber(bytes, end + 10, 2); count > 0; --count) {
        const std::size_t nameLength = ZipNumber(bytes, at + 28, 2);
        const std::size_t local = ZipNumber(bytes, at + 42, 4);
        const std::size_t data = local + 30 + ZipNumber(bytes, local + 26, 2) + ZipNumber(bytes, local + 28, 2);
        const std::string packed = bytes.substr(data, ZipNumber(bytes, at + 20, 4));
        const bool isPacked = ZipNumber(bytes, at + 10, 2) != 0;
        parts[bytes.substr(at + 46, nameLength)] = isPacked ? Inflated(packed, ZipNumber(bytes, at + 24, 4)) : packed;
        at += 46 + nameLength + ZipNumber(bytes, at + 30, 2) + ZipNumber(bytes, at + 32, 2);
    }
    return parts;
}

}  // namespace velda
