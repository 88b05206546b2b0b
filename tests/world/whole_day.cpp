#include "tests/world/whole_day.h"

namespace acceptance {

const std::string whole_day = R"(Mailbox - Tarnwell/Deleted Items
    MessageClass: IPM.Appointment.TarnwellAppt
    Duration: 30
    End: 2026-03-06 14:30:00
    Start: 2026-03-06 14:00:00
    Subject: Visit to the mill
    [AccountID, 1]: A-100
    [ContactID, 1]: C-200
    [ApptID, 1]: AP-1
Mailbox - Tarnwell/Deleted Items
    MessageClass: IPM.Task.TarnwellTask
    DueDate: 2026-03-06 00:00:00
    Subject: Send the price list
    [AccountID, 1]: A-100
    [TaskID, 1]: TA-1
Mailbox - Tarnwell/Sent Items
    MessageClass: IPM.Note
    Body: The first line\r\nThe second line\r\n
    ConversationTopic: Our offer
    FlagRequest: TW-Sent Email Auto Filed
    FlagStatus: 1
    ReceivedTime: (the time of the test)
    SenderEmailAddress: user@tarnwell.example
    SenderEmailType: SMTP
    SenderName: Tarnwell User
    Sent: True
    SentOn: (the time of the test)
    Subject: Our offer
    Submitted: True
    To: Ann Lee
    UnRead: False
    recipient of kind 1: Ann Lee SMTP ann.lee@northmill.example ann.lee@northmill.example
Mailbox - Tarnwell/Sent Items
    MessageClass: IPM.Note
    Body: The first line\r\nThe second line\r\n
    ConversationTopic: We are Tarnwell
    ReceivedTime: (the time of the test)
    SenderEmailAddress: user@tarnwell.example
    SenderEmailType: SMTP
    SenderName: Tarnwell User
    Sent: True
    SentOn: (the time of the test)
    Subject: We are Tarnwell
    Submitted: True
    To: Zoe Quill
    UnRead: False
    recipient of kind 1: Zoe Quill SMTP zoe@quill.example zoe@quill.example
Mailbox - Tarnwell/Inbox
    MessageClass: IPM.Note
    BillingInformation: TW Auto Filed
    Body: The first line\r\nThe second line\r\n
    ConversationTopic: Delivery dates
    FlagRequest: TW-Received eMail Auto Filed
    FlagStatus: 1
    Importance: 1
    ReceivedByEntryID: (id 1)
    ReceivedByName: Tarnwell User
    ReceivedTime: 2026-03-03 09:15:00
    SenderEmailAddress: ann.lee@northmill.example
    SenderEmailType: SMTP
    SenderName: Ann Lee
    SenderSmtpAddress: ann.lee@northmill.example
    Sensitivity: 0
    Sent: True
    SentOn: 2026-03-03 09:15:00
    Subject: Delivery dates
    To: Tom Prior
    UnRead: False
    recipient of kind 1: Tom Prior SMTP tom.prior@tarnwell.example tom.prior@tarnwell.example
Mailbox - Tarnwell/Inbox
    MessageClass: IPM.Note
    Body: The first line\r\nThe second line\r\n
    ConversationTopic: Who are you?
    Importance: 1
    ReceivedByEntryID: (id 1)
    ReceivedByName: Tarnwell User
    ReceivedTime: 2026-03-03 09:15:00
    SenderEmailAddress: zoe@quill.example
    SenderEmailType: SMTP
    SenderName: Zoe Quill
    SenderSmtpAddress: zoe@quill.example
    Sensitivity: 0
    Sent: True
    SentOn: 2026-03-03 09:15:00
    Subject: Who are you?
    To: Tom Prior
    UnRead: False
    recipient of kind 1: Tom Prior SMTP tom.prior@tarnwell.example tom.prior@tarnwell.example
Mailbox - Tarnwell/Inbox
    MessageClass: IPM.Note
    Body: The first line\r\nThe second line\r\n
    ConversationTopic: Not yet read
    Importance: 1
    ReceivedByEntryID: (id 1)
    ReceivedByName: Tarnwell User
    ReceivedTime: 2026-03-03 09:15:00
    SenderEmailAddress: ann.lee@northmill.example
    SenderEmailType: SMTP
    SenderName: Ann Lee
    SenderSmtpAddress: ann.lee@northmill.example
    Sensitivity: 0
    Sent: True
    SentOn: 2026-03-03 09:15:00
    Subject: Not yet read
    To: Tom Prior
    UnRead: True
    recipient of kind 1: Tom Prior SMTP tom.prior@tarnwell.example tom.prior@tarnwell.example
Mailbox - Tarnwell/Inbox
    MessageClass: IPM.Note
    BillingInformation: TW Auto Filed
    Body: The first line\r\nThe second line\r\n
    ConversationTopic: A question by the way
    FlagRequest: TW User Filed
    FlagStatus: 1
    Importance: 1
    ReceivedByEntryID: (id 1)
    ReceivedByName: Tarnwell User
    ReceivedTime: 2026-03-03 09:15:00
    SenderEmailAddress: ann.lee@northmill.example
    SenderEmailType: SMTP
    SenderName: Ann Lee
    SenderSmtpAddress: ann.lee@northmill.example
    Sensitivity: 0
    Sent: True
    SentOn: 2026-03-03 09:15:00
    Subject: A question by the way
    To: Tom Prior
    UnRead: True
    recipient of kind 1: Tom Prior SMTP tom.prior@tarnwell.example tom.prior@tarnwell.example
Mailbox - Tarnwell/Inbox
    MessageClass: IPM.Note
    Body: Dear all\r\n
    ConversationTopic: A greeting
    Importance: 1
    ReceivedByEntryID: (id 1)
    ReceivedByName: Tarnwell User
    ReceivedTime: 2026-03-03 09:15:00
    SenderEmailAddress: zoe@quill.example
    SenderEmailType: SMTP
    SenderName: Zoe Quill
    SenderSmtpAddress: zoe@quill.example
    Sensitivity: 0
    Sent: True
    SentOn: 2026-03-03 09:15:00
    Subject: A greeting
    To: Tom Prior
    UnRead: True
    recipient of kind 1: Tom Prior SMTP tom.prior@tarnwell.example tom.prior@tarnwell.example
Mailbox - Tarnwell/Contacts
    MessageClass: IPM.Contact
    CompanyName: Ray & Sons
    CustomerID: (id 2)
    Email1Address: bob@ray.example
    Email1AddressType: SMTP
    Email1DisplayName: Bob Ray (bob@ray.example)
    FileAs: Ray, Bob
    FirstName: Bob
    FullName: Bob Ray
    LastName: Ray
    Subject: Bob Ray
Mailbox - Tarnwell/Contacts
    MessageClass: IPM.Contact
    CustomerID: (id 3)
    Email1Address: zoe@quill.example
    Email1AddressType: SMTP
    Email1DisplayName: Zoe Quill (zoe@quill.example)
    FileAs: Quill, Zoe
    FirstName: Zoe
    FullName: Zoe Quill
    LastName: Quill
    Subject: Zoe Quill
Mailbox - Tarnwell/Tasks
    MessageClass: IPM.Task.TarnwellTask
    Complete: True
    DateCompleted: (the time of the test)
    DueDate: 2026-03-06 00:00:00
    PercentComplete: 100
    Status: 2
    Subject: Send the price list
    [AccountID, 1]: A-100
    [TaskID, 1]: TA-1
Public Folders/All Public Folders/Tarnwell/Account Profiles
    MessageClass: IPM.Post.Tarnwell_2000
    Subject: North Mill Ltd
    [AccountID, 1]: A-100
    [Account Name, 1]: North Mill Ltd
    [Team, 1]: Sales
Public Folders/All Public Folders/Tarnwell/Account Profiles/Account Contacts
    MessageClass: IPM.Contact.Account Contact
    CompanyName: North Mill Ltd
    Email1Address: ann.lee@northmill.example
    Email1AddressType: SMTP
    Email1DisplayName: Ann Lee (ann.lee@northmill.example)
    FileAs: Lee, Ann
    FirstName: Ann
    FullName: Ann Lee
    LastName: Lee
    Subject: Ann Lee
    [AccountID, 1]: A-100
    [ContactID, 1]: C-200
    [Account Manager, 1]: Mia Hart
    [Team, 1]: Sales
    [Alignment, 1]: North
Public Folders/All Public Folders/Tarnwell/Account Profiles/Account Contacts
    MessageClass: IPM.Contact.Account Contact
    CompanyName: Ray & Sons
    Email1Address: bob@ray.example
    Email1AddressType: SMTP
    Email1DisplayName: Bob Ray (bob@ray.example)
    FileAs: Ray, Bob
    FirstName: Bob
    FullName: Bob Ray
    LastName: Ray
    Subject: Bob Ray
    [ContactID, 1]: (id 2)
    [Account Name, 1]: Ray & Sons
    [Account Manager, 1]: Tom Prior
    [Team, 1]: Tom Prior
    [Alignment, 1]: South
Public Folders/All Public Folders/Tarnwell/Account Profiles/Email
    MessageClass: IPM.Post.Note
    Body: \r\n\r\nThe first line\r\nThe second line\r\n
    ReceivedTime: (the time of the test)
    SenderName: Tarnwell User
    SentOn: (the time of the test)
    Subject: Delivery dates
    [AccountID, 1]: A-100
    [ContactID, 1]: C-200
    [Account Name, 1]: North Mill Ltd
    [Contact Name, 1]: Ann Lee
    [Account Manager, 1]: Mia Hart
    [Team, 1]: Sales
    [Alignment, 1]: North
    [Type, 1]: Email (Received)
    [Activity Date, 5]: 2026-03-03 09:15:00
    attachment Delivery dates: Delivery dates.msg
Public Folders/All Public Folders/Tarnwell/Account Profiles/Email
    MessageClass: IPM.Post.Note
    Body: \r\n\r\nThe first line\r\nThe second line\r\n
    ReceivedTime: (the time of the test)
    SenderName: Tarnwell User
    SentOn: (the time of the test)
    Subject: She asks by the way
    [AccountID, 1]: A-100
    [ContactID, 1]: C-200
    [Account Name, 1]: North Mill Ltd
    [Contact Name, 1]: Ann Lee
    [Account Manager, 1]: Mia Hart
    [Team, 1]: Sales
    [Alignment, 1]: North
    [Type, 1]: Email (Received)
    [Activity Date, 5]: 2026-03-03 09:15:00
    attachment A question by the way: A question by the way.msg
Public Folders/All Public Folders/Tarnwell/Account Profiles/Email
    MessageClass: IPM.Post.Note
    Body: \r\n\r\nThe first line\r\nThe second line\r\n
    ReceivedTime: (the time of the test)
    SenderName: Tarnwell User
    SentOn: (the time of the test)
    Subject: Our offer
    [AccountID, 1]: A-100
    [ContactID, 1]: C-200
    [Account Name, 1]: North Mill Ltd
    [Contact Name, 1]: Ann Lee
    [Account Manager, 1]: Mia Hart
    [Team, 1]: Sales
    [Alignment, 1]: North
    [Type, 1]: Email (Sent)
    [Activity Date, 5]: 4501-01-01 00:00:00
    attachment Our offer: Our offer.msg
Public Folders/All Public Folders/Tarnwell/Account Profiles/Drop Downs
    MessageClass: IPM.Post.Drop Down
    Body: Dear all\r\n
    ConversationTopic: A greeting
    Importance: 1
    ReceivedByEntryID: (id 1)
    ReceivedByName: Tarnwell User
    ReceivedTime: 2026-03-03 09:15:00
    SenderEmailAddress: zoe@quill.example
    SenderEmailType: SMTP
    SenderName: Zoe Quill
    SenderSmtpAddress: zoe@quill.example
    Sensitivity: 0
    Sent: True
    SentOn: 2026-03-03 09:15:00
    Subject: A greeting
    To: Tom Prior
    UnRead: True
    [RecordType, 1]: Email Blast
    recipient of kind 1: Tom Prior SMTP tom.prior@tarnwell.example tom.prior@tarnwell.example
Public Folders/All Public Folders/Tarnwell/Leads
    MessageClass: IPM.Contact.Lead
    Anniversary: 4501-01-01 00:00:00
    Birthday: 4501-01-01 00:00:00
    CustomerID: (id 3)
    Email1Address: zoe@quill.example
    Email1AddressType: SMTP
    Email1DisplayName: Zoe Quill (zoe@quill.example)
    Email2AddressType: SMTP
    Email3AddressType: SMTP
    FileAs: Quill, Zoe
    FirstName: Zoe
    FullName: Zoe Quill
    LastName: Quill
    Subject: Zoe Quill
    [ContactID, 1]: (id 3)
    [Account Manager, 1]: Tom Prior
    [Team, 1]: Tom Prior
Public Folders/All Public Folders/Tarnwell/Global Calendar
    MessageClass: IPM.Appointment.TarnwellAppt
    Duration: 30
    End: 2026-03-06 14:30:00
    Start: 2026-03-06 14:00:00
    Subject: Visit to the mill
    [AccountID, 1]: A-100
    [ContactID, 1]: C-200
    [ApptID, 1]: AP-1
Public Folders/All Public Folders/Tarnwell/Global Tasks
    MessageClass: IPM.Task.TarnwellTask
    Complete: True
    DateCompleted: (the time of the test)
    DueDate: 2026-03-06 00:00:00
    PercentComplete: 100
    Status: 2
    Subject: Send the price list
    [AccountID, 1]: A-100
    [TaskID, 1]: TA-1
)";

const std::vector<std::string> whole_day_boxes = {
    "Tarnwell, 64: Done - creating Note for ann.lee@northmill.example",
    "Tarnwell, 4: Would you like to convert this contact to a Tarnwell Lead? ",
    "Tarnwell, 4: Are you sure you want to create an email template from this email?",
    "Tarnwell, 0: Email Template 'A greeting' Created."};

}  // namespace acceptance
