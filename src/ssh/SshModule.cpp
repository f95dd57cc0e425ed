#include "ssh/SshModule.h"

#include "ssh/LibSshConnection.h"

namespace
{
class Module : public SshModule
{
public:
    std::unique_ptr<SshConnection> connection() const override
    {
        return std::make_unique<LibSshConnection>();
    }
};
} // namespace

extern "C" Q_DECL_EXPORT const SshModule *tintloomSsh1()
{
    static const Module module;
    return &module;
}
