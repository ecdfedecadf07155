#pragma once

#include "foundation/PathObject.h"

#include <utility>

namespace orvana
{

/// The root of a tree of which the program has one, told by the identity of its path object: another object
/// makes the tree be read anew, also when its text is the same. Main thread only.
template <class Item>
class TreeRoot
{
public:
    /// Never null; an empty path stands for no tree.
    const PathObject &path() const { return m_path; }

    void setPath(PathObject path)
    {
        if (!path)
            path = std::make_shared<const std::string>();
        if (path == m_path)
            return;
        m_path = std::move(path);
        m_item.reset();
    }

    /// The item of the path, made at the first call.
    std::shared_ptr<Item> item()
    {
        if (!m_item)
            m_item = std::make_shared<Item>(*m_path);
        return m_item;
    }

private:
    PathObject m_path = std::make_shared<const std::string>();
    std::shared_ptr<Item> m_item;
};

} // namespace orvana
