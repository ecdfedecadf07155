"""Decides who may do what, in place of polkit: a template for dbusmock.

An action is allowed, or asked for, or denied. One that is asked for is denied to who wants no question; the question
is answered at once, or stands until the test answers it. What was granted once stays granted."""

import dbus
from dbusmock import MOCK_IFACE

BUS_NAME = "org.freedesktop.PolicyKit1"
MAIN_OBJ = "/org/freedesktop/PolicyKit1/Authority"
MAIN_IFACE = "org.freedesktop.PolicyKit1.Authority"
SYSTEM_BUS = True

MAY_ASK = 1  # flag of a check


def load(mock, _parameters):
    mock.AddProperties(MAIN_IFACE, dbus.Dictionary({"BackendName": "played", "BackendVersion": "1",
                                                    "BackendFeatures": dbus.UInt32(1, variant_level=1)},
                                                   signature="sv"))
    mock.allow_unknown = False
    mock.allowed = []
    mock.asked = []
    mock.questions_stand = False
    mock.questions = []


@dbus.service.method(MAIN_IFACE, in_signature="(sa{sv})sa{ss}us", out_signature="(bba{ss})",
                     async_callbacks=("reply", "_fail"))
def CheckAuthorization(self, _subject, action, details, flags, _cancellation, reply, _fail):
    nothing = dbus.Dictionary({}, signature="ss")
    if action in self.allowed or self.allow_unknown:
        reply((True, False, nothing))
    elif action not in self.asked:
        reply((False, False, nothing))
    elif not flags & MAY_ASK:
        reply((False, True, nothing))
    elif self.questions_stand:
        self.questions.append((action, reply, len(details) > 0))
    else:
        self.allowed = list(self.allowed) + [action]
        reply((True, False, nothing))


@dbus.service.method(MAIN_IFACE, in_signature="(sa{sv})ss")
def RegisterAuthenticationAgent(_self, _subject, _locale, _object_path):
    pass


@dbus.service.method(MOCK_IFACE, in_signature="b")
def AllowUnknown(self, default):
    self.allow_unknown = default


@dbus.service.method(MOCK_IFACE, in_signature="as")
def SetAllowed(self, actions):
    self.allowed = actions


@dbus.service.method(MOCK_IFACE, in_signature="as")
def SetAsked(self, actions):
    self.asked = actions


@dbus.service.method(MOCK_IFACE, in_signature="b")
def LetQuestionsStand(self, stand):
    self.questions_stand = stand


@dbus.service.method(MOCK_IFACE, out_signature="i")
def Questions(self):
    return len(self.questions)


@dbus.service.method(MOCK_IFACE, out_signature="b")
def DoesServiceAsk(self):
    """The disk service says what its question is about; the program does not."""
    return any(is_described for _, _, is_described in self.questions)


@dbus.service.method(MOCK_IFACE, in_signature="b")
def Answer(self, granted):
    questions, self.questions = self.questions, []
    for action, reply, _ in questions:
        if granted:
            self.allowed = list(self.allowed) + [action]
        reply((granted, False, dbus.Dictionary({}, signature="ss")))
