"""A UDisks2 for python-dbusmock: drives with one block device each, by the interfaces and types of the real
one. A test works it through org.freedesktop.DBus.Mock."""
import dbus
from dbusmock import MOCK_IFACE, mockobject

BUS_NAME = "org.freedesktop.UDisks2"
MAIN_OBJ = "/org/freedesktop/UDisks2"
IS_OBJECT_MANAGER = True
SYSTEM_BUS = False

UDISKS = "org.freedesktop.UDisks2."
ejected = []
refuses = False


def load(_mock, _parameters):
    pass


def path_bytes(path):
    return dbus.Array(path.encode() + b"\0", signature="y")


def eject(drive, _options):
    if refuses:
        raise dbus.exceptions.DBusException("Not authorized to perform operation",
                                            name="org.freedesktop.UDisks2.Error.NotAuthorized")
    ejected.append(drive.path.rsplit("/", 1)[1])


def add(mock, path, interface, values, methods=()):
    mock.AddObject(path, UDISKS + interface, dbus.Dictionary(values, signature="sv"), methods)
    mock.object_manager_emit_added(path)


@dbus.service.method(MOCK_IFACE, in_signature="sssas", out_signature="")
def AddDrive(self, device, vendor, model, media):
    drive = f"{MAIN_OBJ}/drives/Drive_of_{device}"
    block = f"{MAIN_OBJ}/block_devices/{device}"
    add(self, drive, "Drive",
        {"Vendor": vendor, "Model": model, "MediaCompatibility": dbus.Array(media, signature="s"),
         "MediaAvailable": dbus.Boolean(False), "Size": dbus.UInt64(0)},
        [("Eject", "a{sv}", "", eject)])
    add(self, block, "Block",
        {"Device": path_bytes(f"/dev/{device}"), "Drive": dbus.ObjectPath(drive),
         "Symlinks": dbus.Array([path_bytes("/dev/cdrom")], signature="ay")})
    add(self, block + "1", "Block",
        {"Device": path_bytes(f"/dev/{device}1"), "Drive": dbus.ObjectPath(drive)})
    mockobject.objects[block + "1"].AddProperties(UDISKS + "Partition",
                                                  dbus.Dictionary({"Number": dbus.UInt32(1)}, signature="sv"))


@dbus.service.method(MOCK_IFACE, in_signature="s", out_signature="")
def RemoveDrive(self, device):
    for path in (f"{MAIN_OBJ}/block_devices/{device}1", f"{MAIN_OBJ}/block_devices/{device}",
                 f"{MAIN_OBJ}/drives/Drive_of_{device}"):
        self.object_manager_emit_removed(path)
        self.RemoveObject(path)


@dbus.service.method(MOCK_IFACE, in_signature="sss", out_signature="")
def Rename(_self, device, vendor, model):
    mockobject.objects[f"{MAIN_OBJ}/drives/Drive_of_{device}"].UpdateProperties(
        UDISKS + "Drive", {"Vendor": vendor, "Model": model})


@dbus.service.method(MOCK_IFACE, in_signature="b", out_signature="")
def Refuse(_self, on):
    global refuses
    refuses = bool(on)


@dbus.service.method(MOCK_IFACE, in_signature="", out_signature="as")
def Ejected(_self):
    return dbus.Array(ejected, signature="s")
