#include "understood_findings.h"

#include "understood.h"

#include <gtest/gtest.h>

std::vector<std::string> misreadingsIn(const LoadedDocument& loaded)
{
    Findings findings;
    checkUnderstood(loaded.source, findings);
    std::vector<std::string> texts;
    for (const Finding& finding : findings) {
        EXPECT_TRUE(finding.isLocated);
        EXPECT_FALSE(finding.isAboutFile);
        texts.push_back(finding.rule->code + (' ' + textOf(finding.path)) + " [" +
                        loaded.textAt({finding.offset, finding.length}) + "]: " + finding.message);
    }
    return texts;
}

std::vector<std::string> misreadingsIn(const std::string& text)
{
    return misreadingsIn(LoadedDocument(text));
}

std::string withPolicy(const std::string& hostGroupID)
{
    return document(
        "", "", "",
        entry("policy", 1,
              "<policy>" + hostGroupID + "<protocolGroupID>1</protocolGroupID><actionID>1</actionID></policy>"));
}

std::string hostGroupID(const std::string& text)
{
    return "<hostGroupID>" + text + "</hostGroupID>";
}

std::string protocolSelector(const std::string& protocol, const std::string& ports, const std::string& name)
{
    return "<protocolSelector><protocol>" + protocol + "</protocol><name>" + name + "</name>" + ports +
           "<direction>IN</direction><mirrored>MIRRORED</mirrored></protocolSelector>";
}

std::string withProtocolSelectors(const std::string& selectors)
{
    return document("", entry("protocolGroup", 1, group("protocolGroup", "g", "", selectors)));
}
