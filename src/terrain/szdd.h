#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Expands the content of a compressed file: LZ compression, magic SZDD, as files have it whose
/// extension ends in an underscore.
///   limit   most bytes that the content may have
/// Empty for another form, and for a stream that gives less than the length its header tells; what
/// stands behind the stream does not count.
std::optional<std::string> expandbytes(std::span<const std::byte> compressed, std::size_t limit);

/// Expands a compressed file of the folder `srcdir`; `srcname` may have folders of its own. The
/// content stays in memory: nothing is left to clean up, and two programs never meet in one
/// temporary file.
std::optional<std::string> expand(std::string_view srcdir, std::string_view srcname,
                                  std::size_t limit);
