#include "platform/linux/Mounts.h"

#include <libmount/libmount.h>
#include <memory>
#include <sys/sysmacros.h>

namespace orvana::platform::linux_host
{

namespace
{

struct Unref
{
    void operator()(libmnt_table *table) const { mnt_unref_table(table); }
    void operator()(libmnt_iter *iterator) const { mnt_free_iter(iterator); }
};
using Table = std::unique_ptr<libmnt_table, Unref>;

std::string textOf(const char *text)
{
    return text ? text : std::string();
}

template <class Visit>
void visit(libmnt_table &table, Visit each)
{
    const std::unique_ptr<libmnt_iter, Unref> iterator(mnt_new_iter(MNT_ITER_FORWARD));
    libmnt_fs *entry = nullptr;
    while (iterator && mnt_table_next_fs(&table, iterator.get(), &entry) == 0)
        each(*entry);
}

std::vector<std::string> sourcesIn(const std::string &file, int (*parse)(libmnt_table *, const char *))
{
    std::vector<std::string> sources;
    const Table table(mnt_new_table());
    if (!table || parse(table.get(), file.c_str()) != 0)
        return sources;
    visit(*table, [&](libmnt_fs &entry) { sources.push_back(textOf(mnt_fs_get_source(&entry))); });
    return sources;
}

} // namespace

std::vector<Mount> readMounts(const std::string &file)
{
    std::vector<Mount> mounts;
    const Table table(mnt_new_table_from_file(file.c_str()));
    if (!table)
        return mounts;
    visit(*table, [&](libmnt_fs &entry) {
        const auto number = mnt_fs_get_devno(&entry);
        mounts.push_back({.source = textOf(mnt_fs_get_srcpath(&entry)),
                          .target = textOf(mnt_fs_get_target(&entry)),
                          .root = textOf(mnt_fs_get_root(&entry)),
                          .type = textOf(mnt_fs_get_fstype(&entry)),
                          .options = textOf(mnt_fs_get_options(&entry)),
                          .number = std::to_string(major(number)) + ":" + std::to_string(minor(number))});
    });
    return mounts;
}

std::vector<std::string> readSwaps(const std::string &file)
{
    return sourcesIn(file, mnt_table_parse_swaps);
}

std::vector<std::string> readFileSystemTable(const std::string &file)
{
    return sourcesIn(file, mnt_table_parse_fstab);
}

} // namespace orvana::platform::linux_host
