#pragma once

#include "foundation/PathObject.h"

#include <utility>

namespace orvana
{

/// The root of a tree that exists once in the program. The identity of the path object counts: with another
/// object the tree is read again, even when the text is the same. Main thread only.
template <class Item>
class TreeRoot
{
public:
    /// Never null. An empty path means that there is no tree.
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

    /// Returns the item of the path. It is made at the first call for that path.
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
