// A grey-level PNG written with stored deflate blocks, no compression: enough for pictures that a
// test leaves for a person to look at.
#pragma once
#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace zolpng {

inline uint32_t Crc32(const unsigned char* data, size_t size, uint32_t crc = 0) {
  static const auto table = [] {
    std::vector<uint32_t> t(256);
    for (uint32_t n = 0; n < 256; ++n) {
      uint32_t c = n;
      for (int k = 0; k < 8; ++k) c = c & 1 ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[n] = c;
    }
    return t;
  }();
  crc = ~crc;
  for (size_t i = 0; i < size; ++i) crc = table[(crc ^ data[i]) & 0xFF] ^ (crc >> 8);
  return ~crc;
}

inline void PutBigEndian(std::vector<unsigned char>& out, uint32_t v) {
  for (int s = 24; s >= 0; s -= 8) out.push_back(static_cast<unsigned char>(v >> s));
}

inline void Chunk(std::vector<unsigned char>& png, const char* type, const std::vector<unsigned char>& data) {
  PutBigEndian(png, static_cast<uint32_t>(data.size()));
  std::vector<unsigned char> body(type, type + 4);
  body.insert(body.end(), data.begin(), data.end());
  png.insert(png.end(), body.begin(), body.end());
  PutBigEndian(png, Crc32(body.data(), body.size()));
}

/// The bytes of a PNG of width by height grey pixels (0 black, 255 white), rows top to bottom.
inline std::vector<unsigned char> Encode(int width, int height, const std::vector<unsigned char>& grey) {
  std::vector<unsigned char> raw;
  for (int y = 0; y < height; ++y) {
    raw.push_back(0);  // filter: none
    raw.insert(raw.end(), grey.begin() + y * width, grey.begin() + (y + 1) * width);
  }
  std::vector<unsigned char> zlib = {0x78, 0x01};
  uint32_t a = 1, b = 0;
  for (unsigned char c : raw) {
    a = (a + c) % 65521;
    b = (b + a) % 65521;
  }
  for (size_t at = 0; at < raw.size(); at += 65535) {
    const size_t n = std::min<size_t>(65535, raw.size() - at);
    zlib.push_back(at + n >= raw.size() ? 1 : 0);
    zlib.push_back(static_cast<unsigned char>(n));
    zlib.push_back(static_cast<unsigned char>(n >> 8));
    zlib.push_back(static_cast<unsigned char>(~n));
    zlib.push_back(static_cast<unsigned char>(~n >> 8));
    zlib.insert(zlib.end(), raw.begin() + static_cast<long>(at), raw.begin() + static_cast<long>(at + n));
  }
  PutBigEndian(zlib, (b << 16) | a);
  std::vector<unsigned char> png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  std::vector<unsigned char> header;
  PutBigEndian(header, static_cast<uint32_t>(width));
  PutBigEndian(header, static_cast<uint32_t>(height));
  header.insert(header.end(), {8, 0, 0, 0, 0});  // 8-bit grey, deflate, no filter choice, no interlace
  Chunk(png, "IHDR", header);
  Chunk(png, "IDAT", zlib);
  Chunk(png, "IEND", {});
  return png;
}

/// Writes the PNG; 1 when the file was written whole.
inline bool Write(const std::string& path, int width, int height, const std::vector<unsigned char>& grey) {
  const std::vector<unsigned char> png = Encode(width, height, grey);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
  return static_cast<bool>(out);
}

}  // namespace zolpng
