#pragma once

#include <cstdint>
#include <span>
#include <string>

/// The values of fields as Access stores them, with the lowest byte first.
namespace mergeloom::describe::access {

using Bytes = std::span<const unsigned char>;

/// Returns the unsigned number that all the bytes represent.
std::uint64_t unsignedOf(Bytes bytes);
/// Returns a signed number of 2, 4 or 8 bytes.
std::int64_t signedOf(Bytes bytes);
/// Returns the nearest double to the decimal number that a float shows: 0.1, not 0.10000000149011612.
double singleOf(Bytes bytes);
double doubleOf(Bytes bytes);
/// Returns an amount of money of 8 bytes, in ten-thousandths, as a decimal number.
std::string moneyOf(Bytes bytes);
/// Returns a decimal number of 17 bytes: the sign and a number of 16 bytes in groups of four, the highest
/// group first.
std::string decimalOf(Bytes bytes, int scale);
/// Returns a date by ISO 8601, without the time at midnight, or a time for the day 0, which is 1899-12-30.
/// Returns an empty text for a number of days outside the range of Access.
std::string dateOf(double days);
/// Returns a replication id: "{00112233-4455-6677-8899-AABBCCDDEEFF}".
std::string replicationIdOf(Bytes bytes);
/// Returns a text of Jet 4: UTF-16 or, after the bytes FF FE, compressed UTF-16.
std::string textOf(Bytes bytes);

}  // namespace mergeloom::describe::access
