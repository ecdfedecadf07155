#pragma once

#include "enclosures/EnclosureSetup.h"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace orvana::enclosures
{

/// Learns which ports are the bays of an enclosure: the user puts a disk into one bay after the other, and
/// the disk that comes shows the port. Only looks at what it is given; window and terminal do the asking.
class BayLearning
{
public:
    /// The disks that are there at the start show nothing; they must be taken out and put in again.
    explicit BayLearning(const PortSnapshot &start);

    /// The result of one look at the machine.
    struct Answer
    {
        enum class Kind {
            Nothing, ///< nothing new
            Learned, ///< `disk` has shown the port of `bay`; the next bay is asked for
            Refused, ///< what came shows no port of a bay; the same bay is still asked for
        };
        Kind kind = Kind::Nothing;
        char bay = 'A';
        std::string text; ///< the disk with model, serial number, size and port; or the reason
    };
    Answer look(const PortSnapshot &now);

    /// The bay that is asked for, or nullopt after the last one.
    std::optional<char> bay() const { return m_bay <= 'D' ? std::optional(m_bay) : std::nullopt; }

    /// Leaves out the bay that is asked for: the enclosure does not have it.
    void skip() { m_bay = static_cast<char>(m_bay + 1); }

    std::size_t learned() const { return m_learned.size(); }

    /// Returns the definition of what was learned. Ports are counted from the device that all the disks hang
    /// on, if it can be told from all others and plugged in elsewhere. Otherwise each port is named by its
    /// path. The error is a sentence for the user.
    tl::expected<Definition, std::string> finish(const std::string &name,
                                                 const DefinitionSet &existing) const;

private:
    Answer refuse(const std::string &text) const { return {Answer::Kind::Refused, m_bay, text}; }
    std::string reasonAgainst(const PlacedDisk &disk) const;
    std::optional<AnchorDevice> commonAnchor() const;
    bool isOnSomethingThatMoves() const;
    Port portBelow(const AnchorDevice &anchor, const PlacedDisk &disk) const;

    char m_bay = 'A';
    std::set<std::string> m_known; // arrivals that were there, or were dealt with
    std::map<char, PlacedDisk> m_learned;
    std::vector<AnchorDevice> m_anchors;
};

/// Returns the disk in words: "WD Red, serial number SN1, 3.64 TB".
std::string titleOf(const PlacedDisk &disk);

} // namespace orvana::enclosures
