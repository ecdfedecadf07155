#include "platform/RegistryTree.h"

namespace orvana::platform
{

namespace
{

bool isEqual(const RegistryValue &a, const RegistryValue &b)
{
    using Dictionary = std::shared_ptr<const RegistryDictionary>;
    const auto *first = std::get_if<Dictionary>(&a);
    const auto *second = std::get_if<Dictionary>(&b);
    if (first && second && *first && *second)
        return (*first)->values.size() == (*second)->values.size() &&
               std::equal((*first)->values.begin(), (*first)->values.end(), (*second)->values.begin(),
                          [](const auto &x, const auto &y) {
                              return x.first == y.first && isEqual(x.second, y.second);
                          });
    return a == b;
}

} // namespace

std::optional<RegistryValue> searchUpward(const RegistryEntry &entry, const std::string &key)
{
    const auto &own = entry.properties();
    if (const auto found = own.find(key); found != own.end())
        return found->second;
    for (auto above = entry.parent(); above; above = above->parent()) {
        if (const auto found = above->properties().find(key); found != above->properties().end())
            return found->second;
    }
    return std::nullopt;
}

RegistryNode::RegistryNode(const RegistryNode *parent, std::string className, std::string path)
    : m_parent(parent), m_className(std::move(className)), m_path(std::move(path))
{
}

std::shared_ptr<RegistryNode> RegistryNode::makeRoot()
{
    return std::shared_ptr<RegistryNode>(new RegistryNode(nullptr, "IORegistryEntry", "IOService:"));
}

RegistryNode &RegistryNode::add(std::string className, const std::string &pathComponent,
                                RegistryProperties properties)
{
    auto &child =
        m_children.emplace_back(new RegistryNode(this, std::move(className), m_path + "/" + pathComponent));
    child->m_properties = std::move(properties);
    child->m_name = pathComponent.substr(0, pathComponent.find('@'));
    return *child;
}

RegistryEntryPtr RegistryNode::handOut() const
{
    const RegistryNode *root = this;
    while (root->m_parent)
        root = root->m_parent;
    return {root->shared_from_this(), this};
}

RegistryEntryPtr RegistryNode::parent() const
{
    return m_parent ? m_parent->handOut() : nullptr;
}

std::vector<RegistryEntryPtr> RegistryNode::children() const
{
    std::vector<RegistryEntryPtr> list;
    list.reserve(m_children.size());
    for (const auto &child : m_children)
        list.push_back(child->handOut());
    return list;
}

bool RegistryNode::matches(const RegistryMatching &matching) const
{
    if (m_className != matching.className)
        return false;
    for (const auto &[key, wanted] : matching.properties) {
        const auto found = m_properties.find(key);
        if (found == m_properties.end() || !isEqual(found->second, wanted))
            return false;
    }
    return true;
}

void RegistryNode::collect(const RegistryMatching &matching, std::vector<RegistryEntryPtr> &found) const
{
    if (matches(matching))
        found.push_back(handOut());
    for (const auto &child : m_children)
        child->collect(matching, found);
}

} // namespace orvana::platform
