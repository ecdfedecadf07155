#!/usr/bin/python3
"""What the program makes of a disk service's answers on the health of disks: service.py HEALTH_LOOK

A made-up service on a bus of its own has SATA disks, and NVMe disks as its versions from 2.10 on show them."""

import subprocess
import sys
import unittest

import dbus
import dbusmock

SERVICE = 'org.freedesktop.UDisks2'
ROOT = '/org/freedesktop/UDisks2'
LOOK = None


class Health(dbusmock.DBusTestCase):
    @classmethod
    def setUpClass(cls):
        cls.start_system_bus()
        cls.bus = cls.get_dbus(True)

    def setUp(self):
        self.mock = self.spawn_server(SERVICE, ROOT, 'org.freedesktop.DBus.ObjectManager', system_bus=True,
                                      stdout=subprocess.DEVNULL)
        self.root = dbus.Interface(self.bus.get_object(SERVICE, ROOT), dbusmock.MOCK_IFACE)

    def tearDown(self):
        self.mock.terminate()
        self.mock.wait()

    def disk(self, name, serial, interface=None, facts=None, update=''):
        drive = f'{ROOT}/drives/{name}'
        self.root.AddObject(drive, f'{SERVICE}.Drive', {'Serial': serial}, [])
        if interface:
            drive_mock = dbus.Interface(self.bus.get_object(SERVICE, drive), dbusmock.MOCK_IFACE)
            drive_mock.AddProperties(f'{SERVICE}.{interface}', facts)
            drive_mock.AddMethod(f'{SERVICE}.{interface}', 'SmartUpdate', 'a{sv}', '', update)
        self.root.AddObject(f'{ROOT}/block_devices/{name}', f'{SERVICE}.Block', {'Drive': dbus.ObjectPath(drive)}, [])

    def look(self, name, serial):
        return subprocess.run([LOOK, name, serial], stdout=subprocess.PIPE, text=True, check=True, timeout=60).stdout.strip()

    def sata(self, **facts):
        return dbus.Dictionary({'SmartSupported': True, 'SmartEnabled': True, 'SmartUpdated': dbus.UInt64(1),
                                'SmartFailing': False, 'SmartTemperature': 304.15, 'SmartNumBadSectors': dbus.Int64(0),
                                'SmartPowerOnSeconds': dbus.UInt64(7200), 'SmartNumAttributesFailing': dbus.Int32(0),
                                **facts}, signature='sv')

    def nvme(self, warnings):
        return dbus.Dictionary({'SmartUpdated': dbus.UInt64(1), 'SmartTemperature': dbus.UInt16(310),
                                'SmartPowerOnHours': dbus.UInt64(12),
                                'SmartCriticalWarning': dbus.Array(warnings, signature='s')}, signature='sv')

    def test_good_sata_disk(self):
        self.disk('sda', 'S1', 'Drive.Ata', self.sata())
        self.assertEqual(self.look('sda', 'S1'), 'good, 31 °C, 2 hours')

    def test_failing_sata_disk_names_its_reasons(self):
        self.disk('sda', 'S1', 'Drive.Ata', self.sata(SmartFailing=True, SmartNumBadSectors=dbus.Int64(200),
                                                      SmartNumAttributesFailing=dbus.Int32(1)))
        self.assertEqual(self.look('sda', 'S1'),
                         'calls itself failing: 1 value at its limit, 200 bad sectors, 31 °C, 2 hours')

    def test_bad_sectors_that_are_not_known_are_none_to_tell_of(self):
        self.disk('sda', 'S1', 'Drive.Ata', self.sata(SmartNumBadSectors=dbus.Int64(-1)))
        self.assertEqual(self.look('sda', 'S1'), 'good, 31 °C, 2 hours')

    def test_disk_that_was_never_asked_or_does_not_answer_is_not_known(self):
        self.disk('sda', 'S1', 'Drive.Ata', self.sata(SmartUpdated=dbus.UInt64(0)))
        self.disk('sdb', 'S2', 'Drive.Ata', self.sata(SmartEnabled=False))
        self.disk('sdc', 'S3')
        for name, serial in (('sda', 'S1'), ('sdb', 'S2'), ('sdc', 'S3'), ('sdz', 'S9')):
            self.assertEqual(self.look(name, serial), 'not known', name)

    def test_disk_that_refuses_to_be_asked_anew_tells_what_it_told_before(self):
        self.disk('sda', 'S1', 'Drive.Ata', self.sata(),
                  'raise dbus.exceptions.DBusException("no", name="org.freedesktop.UDisks2.Error.NotAuthorized")')
        self.assertEqual(self.look('sda', 'S1'), 'good, 31 °C, 2 hours')

    def test_another_disk_by_that_name_is_not_believed(self):
        self.disk('sda', 'S1', 'Drive.Ata', self.sata())
        self.assertEqual(self.look('sda', 'S2'), 'not known')

    def test_good_nvme_disk(self):
        self.disk('nvme0n1', 'N1', 'NVMe.Controller', self.nvme([]))
        self.assertEqual(self.look('nvme0n1', 'N1'), 'good, 37 °C, 12 hours')

    def test_failing_nvme_disk_names_its_reasons(self):
        self.disk('nvme0n1', 'N1', 'NVMe.Controller', self.nvme(['degraded', 'spare']))
        self.assertEqual(self.look('nvme0n1', 'N1'), 'calls itself failing: degraded, spare, 37 °C, 12 hours')

    def test_no_service_is_not_known(self):
        self.tearDown()
        self.assertEqual(self.look('sda', 'S1'), 'not known')
        self.setUp()


if __name__ == '__main__':
    LOOK = sys.argv.pop(1)
    unittest.main(verbosity=2)
