#pragma once

#include "platform/HardwareRegistry.h"

namespace orvana::platform
{

/// An entry of a registry tree in memory. Back ends build such trees from the devices that they find.
///
/// The root owns the tree. An entry that was handed out keeps the whole tree alive.
class RegistryNode final : public RegistryEntry, public std::enable_shared_from_this<RegistryNode>
{
public:
    static std::shared_ptr<RegistryNode> makeRoot();

    /// Adds a child at the end. `pathComponent` is the child's part of the path. The text before an "@" in it
    /// is the child's name.
    RegistryNode &add(std::string className, const std::string &pathComponent,
                      RegistryProperties properties = {});

    /// Gives the entry a name that differs from its path. Nullopt makes the name unreadable.
    void setName(std::optional<std::string> name) { m_name = std::move(name); }

    const std::string &className() const { return m_className; }
    const RegistryProperties &properties() const override { return m_properties; }
    RegistryEntryPtr parent() const override;
    std::vector<RegistryEntryPtr> children() const override;
    std::string path() const override { return m_path; }
    std::optional<std::string> name() const override { return m_name; }

    /// Appends the matching entries at and below this entry to `found`, parents first.
    void collect(const RegistryMatching &matching, std::vector<RegistryEntryPtr> &found) const;

private:
    RegistryNode(const RegistryNode *parent, std::string className, std::string path);

    RegistryEntryPtr handOut() const;
    bool matches(const RegistryMatching &matching) const;

    const RegistryNode *m_parent;
    std::string m_className;
    std::string m_path;
    std::optional<std::string> m_name;
    RegistryProperties m_properties;
    std::vector<std::unique_ptr<RegistryNode>> m_children;
};

} // namespace orvana::platform
