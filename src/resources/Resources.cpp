#include "resources/Resources.h"

#include <QDir>

// The macro must stand outside of any namespace.
static void initialise()
{
    Q_INIT_RESOURCE(resources);
}

namespace orvana
{

void loadResources()
{
    initialise();
}

} // namespace orvana
