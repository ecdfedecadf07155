#pragma once

#include "discovery/DeviceRecords.h"
#include "platform/HardwareRegistry.h"

#include <optional>
#include <string>

namespace orvana
{

/// Read a property of a registry entry. Return nullopt if the property is missing or has another type.
std::optional<std::string> textOf(const platform::RegistryEntry &entry, const std::string &key);
std::optional<std::int64_t> numberOf(const platform::RegistryEntry &entry, const std::string &key);
std::optional<bool> flagOf(const platform::RegistryEntry &entry, const std::string &key);

/// Return a text without white space at both ends.
std::optional<std::string> trimmedTextOf(const platform::RegistryEntry &entry, const std::string &key);
std::string trimmed(const std::string &text);

/// "/dev/" and the entry's "BSD Name", cut to 1,023 bytes; empty without a name.
std::string devicePathOf(const platform::RegistryEntry &entry);

/// The record of a Thunderbolt switch.
std::shared_ptr<ORVThunderboltInfo> switchRecordOf(const platform::RegistryEntry &entry);

/// Returns the path of the switch above a disk driver: the "Thunderbolt Path" that is found upward, without
/// its last component.
std::optional<std::string> switchPathOf(const platform::RegistryEntry &entry);

/// A new record with the driver's trimmed model and serial number, and its marks.
std::shared_ptr<ORVHddInfo> diskRecordOf(const platform::RegistryEntry &entry);

/// Reads the marks that tell the disk from others: "Unit Serial Number", "World Wide Name", "Arrival Number".
void readMarks(const platform::RegistryEntry &entry, ORVHddInfo &disk);

/// Notes in `disk` if `entry`, an object below it, is a partition that is no usable volume.
void noteOtherPartition(const platform::RegistryEntry &entry, ORVHddInfo &disk);

/// A new volume record.
std::shared_ptr<ORVBsdInfo> volumeRecord(const platform::RegistryEntry &entry);

} // namespace orvana
