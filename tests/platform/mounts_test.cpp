#include "platform/common/mounts.h"
#include "support/matchers.h"

namespace zvr {
namespace {

constexpr const char* aCarPc = R"(22 28 0:21 / /sys rw,nosuid shared:7 - sysfs sysfs rw
28 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw
30 28 0:26 / /run rw,nosuid shared:5 - tmpfs tmpfs rw
40 28 8:1 / /boot/efi rw shared:2 - vfat /dev/sda1 rw
41 28 7:0 / /snap/core/1 ro shared:3 - squashfs /dev/loop0 ro
50 30 8:17 / /run/media/driver/MY\040STICK\134A rw,nosuid - vfat /dev/sdb1 rw
51 28 179:1 / /media/card rw shared:9 master:3 - exfat /dev/mmcblk0p1 rw
52 28 8:3 / /mnt/music rw - ext4 /dev/sda3 rw
53 28 11:0 / /media/cdrom0 ro - iso9660 /dev/sr0 ro
54 28 11:1 / /video ro - udf /dev/sr1 ro
55 28 0:50 / /home/driver/nas rw - cifs //nas/music rw
56 28 0:51 / /srv/share rw - nfs4 nas:/share rw
57 28 0:52 / /mnt/share rw - fuse.sshfs me@host:/ rw
58 28 0:53 / /mnt/scratch rw - tmpfs tmpfs rw
59 28 8:2 /etc/hosts /mnt/hosts rw - ext4 /dev/sda2 rw
60 28 8:2 /home /home rw - ext4 /dev/sda2 rw
61 28 0:54 / /media rw - autofs systemd-1 rw
62 28 8:33 / /media/stick rw - ext4 /dev/sdc1 rw
63 62 8:49 / /media/stick rw - vfat /dev/sdd1 rw
66 28 8:2 /home/driver/Music /media/music rw - ext4 /dev/sda2 rw
nonsense
64 28
65 28 8:9 / /mnt/x rw no dash
)";

const MountFacts facts{
    [](std::string_view device) { return device == "8:17" || device == "179:1" || device == "8:49"; },
    [](const std::string& path) { return path != "/mnt/hosts"; }};

TEST(Mounts, ThatADriverCanBrowse) {
    const auto drives = DrivesOfMounts(aCarPc, facts);
    std::vector<std::pair<std::string, DriveType>> found;
    for (const Drive& drive : drives) {
        found.emplace_back(drive.path, drive.type);
    }
    EXPECT_THAT(
        found,
        ElementsAre(std::pair{"/", DriveType::fixed}, std::pair{"/run/media/driver/MY STICK\\A/", DriveType::removable},
                    std::pair{"/media/card/", DriveType::removable}, std::pair{"/mnt/music/", DriveType::fixed},
                    std::pair{"/media/cdrom0/", DriveType::optical}, std::pair{"/video/", DriveType::optical},
                    std::pair{"/home/driver/nas/", DriveType::network}, std::pair{"/srv/share/", DriveType::network},
                    std::pair{"/mnt/share/", DriveType::network}, std::pair{"/media/stick/", DriveType::removable},
                    std::pair{"/media/music/", DriveType::fixed}));
    EXPECT_TRUE(IsRootOf(drives, "/media/card"));
    EXPECT_TRUE(IsRootOf(drives, "/media/card/"));
    EXPECT_FALSE(IsRootOf(drives, "/media/card/x"));
    EXPECT_FALSE(IsRootOf(drives, "/media"));
}

TEST(Mounts, ThatAreTheMachinesOwnDisks) {
    EXPECT_THAT(FixedVolumesOfMounts(aCarPc, facts), ElementsAre("/", "/mnt/music", "/home", "/media/music"));
    EXPECT_THAT(FixedVolumesOfMounts("", {}), ElementsAre("/"));
    EXPECT_TRUE(IsSystemPath("/usr/share/sounds"));
    EXPECT_TRUE(IsSystemPath("/run/user/1000"));
    EXPECT_FALSE(IsSystemPath("/run/media/driver/stick"));
    EXPECT_FALSE(IsSystemPath("/home/usr/music"));
}

}  // namespace
}  // namespace zvr
