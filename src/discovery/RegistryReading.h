#pragma once

#include "discovery/DeviceRecords.h"
#include "platform/HardwareRegistry.h"

#include <optional>
#include <string>

namespace orvana
{

/// Properties of a registry entry as the scans read them; missing or of another type gives nothing.
std::optional<std::string> textOf(const platform::RegistryEntry &entry, const std::string &key);
std::optional<std::int64_t> numberOf(const platform::RegistryEntry &entry, const std::string &key);
std::optional<bool> flagOf(const platform::RegistryEntry &entry, const std::string &key);

/// The same, without white space at both ends.
std::optional<std::string> trimmedTextOf(const platform::RegistryEntry &entry, const std::string &key);
std::string trimmed(const std::string &text);

/// "/dev/" and the entry's "BSD Name", cut to 1,023 bytes; empty without a name.
std::string devicePathOf(const platform::RegistryEntry &entry);

/// The record of a Thunderbolt switch.
std::shared_ptr<ORVThunderboltInfo> switchRecordOf(const platform::RegistryEntry &entry);

/// The path of the switch that a disk driver hangs on: its "Thunderbolt Path", found upward, without the
/// last component.
std::optional<std::string> switchPathOf(const platform::RegistryEntry &entry);

/// A new record with the driver's trimmed model and serial number, and its marks.
std::shared_ptr<ORVHddInfo> diskRecordOf(const platform::RegistryEntry &entry);

/// Reads the marks that tell the disk from others: "Unit Serial Number", "World Wide Name", "Arrival Number".
void readMarks(const platform::RegistryEntry &entry, ORVHddInfo &disk);

/// Notes on the disk that `entry`, an object below it, is a partition which is no usable volume.
void noteOtherPartition(const platform::RegistryEntry &entry, ORVHddInfo &disk);

/// A new volume record.
std::shared_ptr<ORVBsdInfo> volumeRecord(std::string devPath);

} // namespace orvana
