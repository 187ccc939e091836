#include "support/layout.h"

const char* const fuzz::LinkedItems =
    "<presentation>50</presentation><ejectRetract>eject</ejectRetract>"
    "<VelnorItem class='text' id='label'><x>%left%</x><width>180</width><height>40</height>"
    "<fontname>Liberation Sans</fontname><fontsize link='size'>10</fontsize>"
    "<text link='words'>Ticket %town%</text></VelnorItem>\n"
    "<VelnorItem class='barcode' id='code'><type link='kind'>58</type><width>80</width>"
    "<text link='data'>%number%</text><primary/></VelnorItem>\n"
    "<VelnorItem class='image' id='logo'><filepath link='file'>grey.png</filepath>"
    "<scalex link='file'/><VelnorItem class='line' id='rule'><length link='reach'>9</length>"
    "</VelnorItem></VelnorItem>\n"
    "<VelnorItem class='rectangle' id='frame'><thickness><!-- dots -->3</thickness>"
    "<width link='reach'>60</width><height><![CDATA[40]]></height></VelnorItem>\n";

std::string fuzz::layoutOf(int width, int height, std::string_view items) {
    return "<VelnorRoot><VelnorItems class='canvas' id='canvas'><dpi>203</dpi>" +
           element("width", std::to_string(width)) + element("height", std::to_string(height)) +
           std::string(items) + "</VelnorItems></VelnorRoot>\n";
}

std::string fuzz::element(std::string_view name, std::string_view value) {
    if (value.empty()) {
        return {};
    }
    const std::string tag(name);
    return "<" + tag + ">" + std::string(value) + "</" + tag + ">";
}
