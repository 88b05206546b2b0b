#include "desk/outlook/tables/schema_names.h"

#include <algorithm>

namespace desk::tables {
namespace {

constexpr SchemaNameRow schema_rows[] = {
    {u"DAV:creationdate", u"CreationTime"},
    {u"DAV:getlastmodified", u"LastModificationTime"},

    {u"http://schemas.microsoft.com/exchange/companies", u"Companies"},
    {u"http://schemas.microsoft.com/exchange/messageclass", u"MessageClass"},
    {u"http://schemas.microsoft.com/exchange/mileage", u"Mileage"},
    {u"http://schemas.microsoft.com/exchange/outlookmessageclass", u"MessageClass"},
    {u"http://schemas.microsoft.com/exchange/readreceiptrequested", u"ReadReceiptRequested"},
    {u"http://schemas.microsoft.com/exchange/sensitivity", u"Sensitivity"},
    {u"http://schemas.microsoft.com/exchange/tasks/dtcompl", u"DateCompleted"},
    {u"http://schemas.microsoft.com/exchange/tasks/dtdue", u"DueDate"},
    {u"http://schemas.microsoft.com/exchange/tasks/dtstart", u"StartDate"},
    {u"http://schemas.microsoft.com/exchange/tasks/is_complete", u"Complete"},
    {u"http://schemas.microsoft.com/exchange/tasks/owner", u"Owner"},
    {u"http://schemas.microsoft.com/exchange/tasks/status", u"Status"},

    {u"urn:schemas-microsoft-com:office:office#Company", u"CompanyName"},
    {u"urn:schemas-microsoft-com:office:office#Keywords", u"Categories"},
    {u"urn:schemas-microsoft-com:office:office#Subject", u"Subject"},

    {u"urn:schemas:calendar:alldayevent", u"AllDayEvent"},
    {u"urn:schemas:calendar:created", u"CreationTime"},
    {u"urn:schemas:calendar:dtend", u"End"},
    {u"urn:schemas:calendar:dtstart", u"Start"},
    {u"urn:schemas:calendar:lastmodified", u"LastModificationTime"},
    {u"urn:schemas:calendar:location", u"Location"},
    {u"urn:schemas:calendar:responserequested", u"ResponseRequested"},

    {u"urn:schemas:contacts:account", u"Account"},
    {u"urn:schemas:contacts:bday", u"Birthday"},
    {u"urn:schemas:contacts:billinginformation", u"BillingInformation"},
    {u"urn:schemas:contacts:businesshomepage", u"BusinessHomePage"},
    {u"urn:schemas:contacts:callbackphone", u"CallbackTelephoneNumber"},
    {u"urn:schemas:contacts:cn", u"FullName"},
    {u"urn:schemas:contacts:co", u"BusinessAddressCountry"},
    {u"urn:schemas:contacts:computernetworkname", u"ComputerNetworkName"},
    {u"urn:schemas:contacts:customerid", u"CustomerID"},
    {u"urn:schemas:contacts:department", u"Department"},
    {u"urn:schemas:contacts:email1", u"Email1Address"},
    {u"urn:schemas:contacts:email2", u"Email2Address"},
    {u"urn:schemas:contacts:email3", u"Email3Address"},
    {u"urn:schemas:contacts:employeenumber", u"OrganizationalIDNumber"},
    {u"urn:schemas:contacts:facsimiletelephonenumber", u"BusinessFaxNumber"},
    {u"urn:schemas:contacts:fileas", u"FileAs"},
    {u"urn:schemas:contacts:ftpsite", u"FTPSite"},
    {u"urn:schemas:contacts:gender", u"Gender"},
    {u"urn:schemas:contacts:givenName", u"FirstName"},
    {u"urn:schemas:contacts:governmentid", u"GovernmentIDNumber"},
    {u"urn:schemas:contacts:hobbies", u"Hobby"},
    {u"urn:schemas:contacts:homeCity", u"HomeAddressCity"},
    {u"urn:schemas:contacts:homeCountry", u"HomeAddressCountry"},
    {u"urn:schemas:contacts:homePhone", u"HomeTelephoneNumber"},
    {u"urn:schemas:contacts:homePostalCode", u"HomeAddressPostalCode"},
    {u"urn:schemas:contacts:homeState", u"HomeAddressState"},
    {u"urn:schemas:contacts:homeStreet", u"HomeAddressStreet"},
    {u"urn:schemas:contacts:homefax", u"HomeFaxNumber"},
    {u"urn:schemas:contacts:homephone2", u"Home2TelephoneNumber"},
    {u"urn:schemas:contacts:initials", u"Initials"},
    {u"urn:schemas:contacts:l", u"BusinessAddressCity"},
    {u"urn:schemas:contacts:language", u"Language"},
    {u"urn:schemas:contacts:manager", u"ManagerName"},
    {u"urn:schemas:contacts:middlename", u"MiddleName"},
    {u"urn:schemas:contacts:mobile", u"MobileTelephoneNumber"},
    {u"urn:schemas:contacts:namesuffix", u"Suffix"},
    {u"urn:schemas:contacts:nickname", u"NickName"},
    {u"urn:schemas:contacts:o", u"CompanyName"},
    {u"urn:schemas:contacts:organizationmainphone", u"CompanyMainTelephoneNumber"},
    {u"urn:schemas:contacts:otherTelephone", u"OtherTelephoneNumber"},
    {u"urn:schemas:contacts:otherfax", u"OtherFaxNumber"},
    {u"urn:schemas:contacts:othermobile", u"CarTelephoneNumber"},
    {u"urn:schemas:contacts:pager", u"PagerNumber"},
    {u"urn:schemas:contacts:personalHomePage", u"PersonalHomePage"},
    {u"urn:schemas:contacts:personaltitle", u"Title"},
    {u"urn:schemas:contacts:postalcode", u"BusinessAddressPostalCode"},
    {u"urn:schemas:contacts:postofficebox", u"BusinessAddressPostOfficeBox"},
    {u"urn:schemas:contacts:profession", u"Profession"},
    {u"urn:schemas:contacts:roomnumber", u"OfficeLocation"},
    {u"urn:schemas:contacts:secretary", u"AssistantName"},
    {u"urn:schemas:contacts:secretaryphone", u"AssistantTelephoneNumber"},
    {u"urn:schemas:contacts:sn", u"LastName"},
    {u"urn:schemas:contacts:spousecn", u"Spouse"},
    {u"urn:schemas:contacts:st", u"BusinessAddressState"},
    {u"urn:schemas:contacts:street", u"BusinessAddressStreet"},
    {u"urn:schemas:contacts:telephoneNumber", u"BusinessTelephoneNumber"},
    {u"urn:schemas:contacts:telephonenumber2", u"Business2TelephoneNumber"},
    {u"urn:schemas:contacts:telexnumber", u"TelexNumber"},
    {u"urn:schemas:contacts:title", u"JobTitle"},
    {u"urn:schemas:contacts:ttytddphone", u"TTYTDDTelephoneNumber"},
    {u"urn:schemas:contacts:weddinganniversary", u"Anniversary"},

    {u"urn:schemas:httpmail:date", u"SentOn"},
    {u"urn:schemas:httpmail:datereceived", u"ReceivedTime"},
    {u"urn:schemas:httpmail:displaybcc", u"BCC"},
    {u"urn:schemas:httpmail:displaycc", u"CC"},
    {u"urn:schemas:httpmail:displayto", u"To"},
    {u"urn:schemas:httpmail:fromemail", u"SenderEmailAddress"},
    {u"urn:schemas:httpmail:fromname", u"SenderName"},
    {u"urn:schemas:httpmail:hasattachment", has_attachments},
    {u"urn:schemas:httpmail:importance", u"Importance"},
    {u"urn:schemas:httpmail:messageflag", u"FlagRequest"},
    {u"urn:schemas:httpmail:read", u"UnRead", true},
    {u"urn:schemas:httpmail:senderemail", u"SenderEmailAddress"},
    {u"urn:schemas:httpmail:sendername", u"SenderName"},
    {u"urn:schemas:httpmail:subject", u"Subject"},
    {u"urn:schemas:httpmail:textdescription", u"Body"},

    {u"urn:schemas:mailheader:message-id", u"InternetMessageId"},
    {u"urn:schemas:mailheader:subject", u"Subject"},
    {u"urn:schemas:mailheader:thread-topic", u"ConversationTopic"},
};
static_assert(std::ranges::is_sorted(schema_rows, {}, &SchemaNameRow::address));

}  // namespace

const SchemaNameRow* find_schema_name(automation::TextView address) {
    const auto* const row = std::ranges::lower_bound(schema_rows, address, {}, &SchemaNameRow::address);
    return row != std::end(schema_rows) && row->address == address ? row : nullptr;
}

}  // namespace desk::tables
