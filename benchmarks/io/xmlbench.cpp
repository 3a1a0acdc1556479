#include "benchmarks/harness.h"
#include "io/stream.h"
#include "io/xmlreader.h"
#include "io/xmlwriter.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

#if __has_include(<pugixml.hpp>)
#define PUGIXML_NO_EXCEPTIONS
#include <pugixml.hpp>
#define HAS_PUGIXML
#endif

#if __has_include(<rapidxml/rapidxml.hpp>)
#define RAPIDXML_NO_EXCEPTIONS
#include <rapidxml/rapidxml.hpp>
#include <rapidxml/rapidxml_print.hpp>
#define HAS_RAPIDXML

void rapidxml::parse_error_handler(const char*, void*)
{
    abort();
}
#endif

namespace
{
// One call to a writer: a null value opens the tag of that name, a null name closes the open one.
struct sCall
{
    const char* name;
    const char* value;
};

// The saved form of an animation of 60 tracks with 5 lanes each, as calls and as a file.
class Document
{
public:
    explicit Document(unsigned int keyNum);
    ~Document() { std::filesystem::remove(mPath); }

    static constexpr const char* Root = "AnimResource";

    const std::vector<sCall>& getCalls() const { return mCalls; }

    // The candidates read this file and write over it.
    const char* getPath() const { return mPath.c_str(); }

private:
    void open(const std::string& name) { mCalls.push_back({keep(name), nullptr}); }
    void close() { mCalls.push_back({nullptr, nullptr}); }
    void add(const char* name, const std::string& value) { mCalls.push_back({name, keep(value)}); }

    void addObject(const char* type, bool stable);
    void openProperty(const char* name, const char* type);
    void openList(const char* name, unsigned int count);
    void addKey(unsigned int key);

    const char* keep(const std::string& text)
    {
        mTexts.push_back(std::make_unique<std::string>(text));
        return mTexts.back()->c_str();
    }

    std::string mPath = bench::getMemoryDirectory() / ("xmlbench" + std::to_string(getpid()));
    std::vector<std::unique_ptr<std::string>> mTexts;
    std::vector<sCall> mCalls;
    unsigned int mObjectNum = 0;
};

template <typename Writer>
void replay(const std::vector<sCall>& calls, Writer& writer)
{
    for (const sCall& call : calls)
    {
        if (call.value)
            writer.addAttribute(call.name, call.value);
        else if (call.name)
            writer.openTag(call.name);
        else
            writer.closeTag();
    }
}

struct sOwn
{
    static constexpr const char* Name = "XmlWriter, XmlReader";

    void openTag(const char* name) { mWriter.openTag(name); }
    void closeTag() { mWriter.closeTag(); }
    void addAttribute(const char* name, const char* value) { mWriter.addAttribute(name, value); }

    void save(const Document& document)
    {
        TextFileStream stream(document.getPath(), FileStream::Write);
        mWriter.write(&stream);
    }

    static void parse(const Document& document)
    {
        TextFileStream stream(document.getPath(), FileStream::Read);
        XmlReader reader;
        reader.parse(&stream);
        bench::keep(reader);
    }

    XmlWriter mWriter{Document::Root};
};

Document::Document(unsigned int keyNum)
{
    addObject("AnimResource", true);
    openList("track_list", 60);
    for (unsigned int track = 0; track < 60; ++track)
    {
        open("element" + std::to_string(track));
        addObject("SequencerTrack", false);
        openProperty("track_name", "string");
        add("value", "Track" + std::to_string(track));
        close();
        openList("lane_list", 5);
        for (unsigned int lane = 0; lane < 5; ++lane)
        {
            open("element" + std::to_string(lane));
            addObject("SequencerLane", false);
            openList("key_list", keyNum);
            for (unsigned int key = 0; key < keyNum; ++key)
                addKey(key);
            close();
            close();
        }
        close();
        close();
    }
    close();

    sOwn own;
    replay(mCalls, own);
    own.save(*this);
}

void Document::addObject(const char* type, bool stable)
{
    add("typeinfo", type);
    add("id", std::to_string(++mObjectNum));
    add("stable", stable ? "true" : "false");
}

void Document::openProperty(const char* name, const char* type)
{
    open(name);
    add("type", type);
    add("count", "0");
    add("index", "0");
}

void Document::openList(const char* name, unsigned int count)
{
    openProperty(name, "Object");
    addObject("ObjectList", true);
    add("list_count", std::to_string(count));
}

void Document::addKey(unsigned int key)
{
    open("element" + std::to_string(key));
    addObject("SequencerUniqueKey<sPoint>", false);
    for (const sCall& property :
         {sCall{"frame", "u16"}, sCall{"interpolate_type", "u32"}, sCall{"trigger_only", "bool"}})
    {
        openProperty(property.name, property.value);
        add("value", property.value[0] == 'b' ? "false" : std::to_string(key * 3));
        close();
    }
    openProperty("parameter", "point");
    add("x", std::to_string(mObjectNum * 7 % 1024));
    add("y", std::to_string(mObjectNum * 13 % 768));
    close();
    close();
}

#ifdef HAS_PUGIXML
struct sPugi
{
    static constexpr const char* Name = "pugixml";

    void openTag(const char* name) { mNode = mNode.append_child(name); }
    void closeTag() { mNode = mNode.parent(); }
    void addAttribute(const char* name, const char* value) { mNode.append_attribute(name) = value; }
    void save(const Document& document) { mDocument.save_file(document.getPath()); }

    static void parse(const Document& document)
    {
        pugi::xml_document peer;
        if (!peer.load_file(document.getPath(), pugi::parse_minimal))
            abort();
        bench::keep(peer);
    }

    pugi::xml_document mDocument;
    pugi::xml_node mNode = mDocument.append_child(Document::Root);
};
#endif

#ifdef HAS_RAPIDXML
struct sRapid
{
    static constexpr const char* Name = "rapidxml";

    sRapid() { openTag(Document::Root); }

    void openTag(const char* name)
    {
        rapidxml::xml_node<>* node = mDocument.allocate_node(rapidxml::node_element, mDocument.allocate_string(name));
        mpNode->append_node(node);
        mpNode = node;
    }

    void closeTag() { mpNode = mpNode->parent(); }

    void addAttribute(const char* name, const char* value)
    {
        mpNode->append_attribute(
            mDocument.allocate_attribute(mDocument.allocate_string(name), mDocument.allocate_string(value)));
    }

    // Gathers characters for the file.
    struct sOutput
    {
        FILE* file;
        unsigned int used;
        char buffer[128 * 1024];

        void flush() { used -= static_cast<unsigned int>(fwrite(buffer, 1, used, file)); }
    };

    // The cheapest that an output iterator can be.
    struct sPlace
    {
        sPlace& operator*() { return *this; }
        sPlace& operator++() { return *this; }
        sPlace operator++(int) { return *this; }

        void operator=(char c)
        {
            if (output->used == sizeof(output->buffer))
                output->flush();
            output->buffer[output->used++] = c;
        }

        sOutput* output;
    };

    void save(const Document& document)
    {
        static sOutput output;
        output.file = fopen(document.getPath(), "wb");
        rapidxml::print(sPlace{&output}, mDocument);
        output.flush();
        fclose(output.file);
    }

    static void parse(const Document& document)
    {
        FILE* file = fopen(document.getPath(), "rb");
        fseek(file, 0, SEEK_END);
        const std::size_t size = static_cast<std::size_t>(ftell(file));
        rewind(file);
        const std::unique_ptr<char[]> text(new char[size + 1]);
        text[fread(text.get(), 1, size, file)] = 0;
        fclose(file);
        rapidxml::xml_document<> peer;
        peer.parse<rapidxml::parse_no_data_nodes | rapidxml::parse_no_entity_translation>(text.get());
        bench::keep(peer);
    }

    rapidxml::xml_document<> mDocument;
    rapidxml::xml_node<>* mpNode = &mDocument;
};
#endif

using Work = double (*)(const Document& document);

template <typename Tool>
double parse(const Document& document)
{
    return bench::measure([&] { Tool::parse(document); });
}

template <typename Tool>
double saveTree(const Document& document)
{
    Tool tool;
    replay(document.getCalls(), tool);
    return bench::measure([&] { tool.save(document); });
}

template <typename Tool>
double saveCalls(const Document& document)
{
    return bench::measure(
        [&]
        {
            Tool tool;
            replay(document.getCalls(), tool);
            tool.save(document);
        });
}

struct sParse
{
    template <typename Tool>
    static constexpr Work work = parse<Tool>;
};

struct sSaveTree
{
    template <typename Tool>
    static constexpr Work work = saveTree<Tool>;
};

struct sSaveCalls
{
    template <typename Tool>
    static constexpr Work work = saveCalls<Tool>;
};

template <typename Task, unsigned int KeyNum>
bench::Candidates make()
{
    const std::shared_ptr<Document> document = std::make_shared<Document>(KeyNum);
    bench::Candidates candidates;
    const auto add = [&]<typename Tool>(std::type_identity<Tool>)
    {
        candidates.push_back({Tool::Name, [document]
                              {
                                  return Task::template work<Tool>(*document);
                              }});
    };
    add(std::type_identity<sOwn>());
#ifdef HAS_PUGIXML
    add(std::type_identity<sPugi>());
#endif
#ifdef HAS_RAPIDXML
    add(std::type_identity<sRapid>());
#endif
    return candidates;
}

constexpr unsigned int Small = 9;  // about 1 MB
constexpr unsigned int Large = 37; // about 4 MB

const bench::Goal goals[] = {
    {11, "XML, parse 1 MB", 1.1, make<sParse, Small>},
    {11, "XML, parse 4 MB", 1.1, make<sParse, Large>},
    {11, "XML, tree of 1 MB to file", 0.9, make<sSaveTree, Small>},
    {11, "XML, tree of 4 MB to file", 0.9, make<sSaveTree, Large>},
    {11, "XML, calls for 1 MB to file", 0.9, make<sSaveCalls, Small>},
    {11, "XML, calls for 4 MB to file", 0.9, make<sSaveCalls, Large>},
};
}
