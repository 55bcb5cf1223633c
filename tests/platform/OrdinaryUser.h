#pragma once

#include <QtGlobal>
#include <unistd.h>

/// Takes the rights of an administrator, who may write anywhere, from the process for a while.
class OrdinaryUser
{
public:
    OrdinaryUser() : isDropped_(geteuid() != 0 || setresuid(nobody, nobody, 0) == 0) {}
    ~OrdinaryUser()
    {
        if (getuid() == nobody && setresuid(0, 0, 0) != 0)
            qFatal("can't take the administrator's rights back");
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

    [[nodiscard]] bool isDropped() const { return isDropped_; }

private:
    static constexpr uid_t nobody = 65534;
    bool isDropped_;
};
