# Writes the package of builtin palettes, as core/ResourcePackage.h describes it, as a C++ source:
#
#   cmake -P generatePackage.cmake OUTPUT.cpp PALETTE...
#
# Each palette is known by the name that it is given by. This is a script, so that a build for
# another machine needs no program for this one; bytes are pairs of hexadecimal digits here.
cmake_minimum_required(VERSION 3.25)

set(output ${CMAKE_ARGV3})
set(names "")
foreach(argument RANGE 4 ${CMAKE_ARGC})
    list(APPEND names ${CMAKE_ARGV${argument}})
endforeach()
# The palettes lie back to back from here on, after the leader, the index and its CRC-32.
set(first_offset 664)

# Appends `number` to `package` as four bytes, the least significant first.
macro(append_number number)
    foreach(shift 0 8 16 24)
        math(EXPR byte "256 + ((${number} >> ${shift}) & 255)" OUTPUT_FORMAT HEXADECIMAL)
        string(SUBSTRING ${byte} 3 2 byte) # of 0x1..
        string(APPEND package ${byte})
    endforeach()
endmacro()

# Appends the length of `text` and its characters to `package`.
macro(append_text text)
    string(LENGTH ${text} length)
    append_number(${length})
    string(HEX ${text} digits)
    string(APPEND package ${digits})
endmacro()

# The CRC-32 of `bytes` (PNG, annex D), a bit at a time: there are only some hundred bytes.
function(crc32 result bytes)
    set(crc 0xFFFFFFFF)
    string(REGEX MATCHALL ".." bytes ${bytes})
    foreach(byte IN LISTS bytes)
        math(EXPR crc "${crc} ^ 0x${byte}")
        foreach(bit RANGE 1 8)
            math(EXPR crc "(${crc} >> 1) ^ (0xEDB88320 * (${crc} & 1))")
        endforeach()
    endforeach()
    math(EXPR crc "${crc} ^ 0xFFFFFFFF")
    set(${result} ${crc} PARENT_SCOPE)
endfunction()

string(HEX "VPK1" package)
list(LENGTH names count)
append_number(${count})
set(offset ${first_offset})
set(contents "")
foreach(name IN LISTS names)
    file(READ ${name} content HEX)
    file(SIZE ${name} size)
    append_text(${name})
    append_number(2) # attributes: their keys, then their values
    foreach(text offset size ${offset} ${size})
        append_text(${text})
    endforeach()
    string(APPEND contents ${content})
    math(EXPR offset "${offset} + ${size}")
endforeach()
crc32(crc ${package})
append_number(${crc})

string(LENGTH ${package} index_digits)
math(EXPR unused_digits "2 * ${first_offset} - ${index_digits}")
if(unused_digits LESS 0)
    message(FATAL_ERROR "The index does not fit before the first resource.")
endif()
string(REPEAT 0 ${unused_digits} unused)
string(APPEND package ${unused}${contents})

string(REGEX REPLACE "(..)" "0x\\1," numbers ${package})
string(REPEAT . 80 line) # 16 bytes
string(REGEX REPLACE "(${line})" "\\1\n" numbers ${numbers})
file(CONFIGURE OUTPUT ${output} @ONLY CONTENT [[
#include "core/ResourcePackage.h"

#include <array>

namespace VORN {

namespace {

constexpr std::array<std::uint8_t, @offset@> kPackage{
@numbers@};

} // namespace

std::span<const std::uint8_t> builtinPackage() { return kPackage; }

} // namespace VORN
]])
