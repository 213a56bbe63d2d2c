#pragma once
// Mapped files that another program may shorten while we read them. Touching
// a mapped page beyond the new end of the file raises SIGBUS; for a mapping
// registered here the handler puts zero pages there instead and notes that
// the mapping was cut, so the reader runs to its end and the caller reports
// a read failure rather than the program dying.
#include <cstddef>

namespace ortelix::mapping_guard {

// Registers the mapping [begin, begin + length) (begin page-aligned, as mmap
// returns it) and installs the handler on first use. Returns the slot, or -1
// when every slot is taken (the caller then reads the file instead).
int Register(const void* begin, size_t length);
// Forgets the slot; call before unmapping.
void Unregister(int slot);
// True once a fault inside the slot's mapping was answered with zero pages.
bool Cut(int slot);

}  // namespace ortelix::mapping_guard
