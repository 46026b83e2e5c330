// What an archive makes of objects, as bytes, and back.
#pragma once

#include <cstddef>
#include <string>

#include "brindle/platform/base/archive.h"
#include "brindle/platform/base/file.h"

namespace brindle {

// A literal with its zeros.
template <std::size_t N>
std::string bytes(const char (&text)[N]) {
  return {text, N - 1};
}

template <class Action>
std::string stored(Action action, int buffer_size = 4096) {
  CMemFile file;
  CArchive archive(&file, CArchive::store, buffer_size);
  action(archive);
  archive.Close();
  return {reinterpret_cast<const char*>(file.GetBufferPtr()),
          static_cast<std::size_t>(file.GetLength())};
}

template <class Action>
void loaded(std::string bytes, Action action, int buffer_size = 4096) {
  CMemFile file(reinterpret_cast<BYTE*>(bytes.data()), static_cast<UINT>(bytes.size()));
  CArchive archive(&file, CArchive::load, buffer_size);
  action(archive);
}

}  // namespace brindle
